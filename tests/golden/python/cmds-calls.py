import maya.cmds as cmds
box = cmds.polyCube(name="box")[0]
maya.cmds.select(cmds.ls(sl=True), r=True)
xcmds.ls(); cmds .ls(); cmds. ls(); ls(); self.ls()
mc.ls(); cmds.nothing(); cmds.print("x")
cmds.ls.size; "cmds.ls"; #cmds.ls
cmds.file(q=1, sn=1).cmds.parent
cmds.for; cmds.ls-1; cmds.in
