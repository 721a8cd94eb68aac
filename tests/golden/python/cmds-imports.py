from maya.cmds import ls, polyCube, nothing
from cmds import select as pick
from maya import cmds, ls
    from maya.cmds import (setAttr,
        getAttr)
from mycmds import ls
from maya.cmds.ls import ls
from maya.cmds import ls # select
frommaya.cmds import ls
