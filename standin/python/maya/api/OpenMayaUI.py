# SPDX-License-Identifier: MIT
"""The interface module."""
from maya.OpenMayaUI import MQtUtil
