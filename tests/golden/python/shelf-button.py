import maya.cmds as cmds; [cmds.setAttr(n + '.v', 0) for n in cmds.ls(sl=1)]
