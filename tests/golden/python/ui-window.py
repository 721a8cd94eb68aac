from functools import partial
import maya.cmds as cmds

class PoseWindow:
    NAME = 'poseWindow'

    def show(self):
        if cmds.window(self.NAME, exists=True):
            cmds.deleteUI(self.NAME)
        cmds.window(self.NAME, title='Poses')
        cmds.columnLayout(adjustableColumn=True)
        for pose in ('idle', 'run', "it's"):
            cmds.button(label=pose, command=partial(self.apply, pose))
        cmds.showWindow(self.NAME)

    def apply(self, pose, *_):
        def undo():
            cmds.select(clear=True)
        return undo

PoseWindow().show()
