# Exports each set as its own file.
import json, os

from maya import cmds


def _short(name): return name.rpartition("|")[2]


def export(folder, kinds=("mesh", "camera")):
    written = {}
    for kind in kinds:
        path = os.path.join(folder, kind + ".json")
        with open(path, "w") as stream:
            json.dump({
                "kind": kind,
                "nodes": [_short(n) for n in cmds.ls(type=kind) or []],
            }, stream, indent=4)
        written[kind] = path  # TODO check the size
    return written
