import os
import os.path
import	tabbed
import maya.cmds
import  spaced.module  
import commented # TODO drop
if True:
    import json
import
import 3
import a-b
imports = 1
