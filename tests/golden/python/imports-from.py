from maya import cmds
from maya import cmds, mel
from maya.api import OpenMaya as om
from os.path import join, exists as there
from os import *
from os import *, path
from os import (path)
from os import (path,
                sep)
from . import sibling
from .rig import arm
from ..lib.util import clamp # TODO move
from os import a,,b
fromage import x
from os import
from a import b;
