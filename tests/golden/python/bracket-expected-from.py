cmds.ls(
from os import path
