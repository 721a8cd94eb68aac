# SPDX-License-Identifier: MIT
"""The part of the general module that needs no scene."""
from maya.OpenMaya import MGlobal
