import maya.cmds as cmds
import numpy as np # TODO check it is there
import pymel.core  as	pm
import a as b, c
import a as
import as as as
def late():
    import maya.mel as mel
