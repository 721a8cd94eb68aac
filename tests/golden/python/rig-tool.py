"""Builds the arm of a character."""
import math
import maya.cmds as cmds
from maya.api import OpenMaya

SIDES = {"L": 1.0, "R": -1.0}


class ArmBuilder(object):
    """One arm.

    TODO: support extra twist joints
    """

    def __init__(self, side, count=3):
        self.side = side
        self.count = count
        self._joints = []

    @classmethod
    def both(cls):
        return [cls(side) for side in sorted(SIDES)]

    @staticmethod
    def distance(a, b):
        return math.sqrt(sum((x - y) ** 2 for x, y in zip(a, b)))

    def build(self):
        for i in range(self.count):
            name = "arm_%s_%02d_JNT" % (self.side, i)
            if cmds.objExists(name):
                raise RuntimeError("There is a \"%s\"" % name)
            self._joints.append(
                cmds.joint(name=name, position=(i * SIDES[self.side],
                                                10.0, 0.0)))
        return self._joints


if __name__ == "__main__":
    for arm in ArmBuilder.both():
        arm.build()
