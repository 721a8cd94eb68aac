#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""How fast the analysis script lists the names of maya.cmds, against jedi, warm, in the same run.

Usage: bench_analysis.py [ROOT]      exits with 1 when it is less than 20 times as fast
"""

import os
import sys
import tempfile
import time
import types

COMMANDS = 2500
ROUNDS = 15
WANTED_RATIO = 20.0

SOURCE = """import maya.cmds as cmds

def build(side, count=10):
    nodes = []
    for index in range(count):
        nodes.append("%s_%d" % (side, index))
    return nodes

"""


def command_module():
    names = ["command%d" % i for i in range(COMMANDS)]
    text = "".join("def %s(*args, **flags):\n    pass\n\n" % name for name in names)
    return names, text


def lend_to_host(text):
    """The commands as Maya has them: in modules that are loaded."""
    maya = types.ModuleType("maya")
    maya.cmds = types.ModuleType("maya.cmds")
    exec(text, maya.cmds.__dict__)
    sys.modules.update({"maya": maya, "maya.cmds": maya.cmds})


def lend_to_peer(text, folder):
    """The commands as jedi finds them: in files."""
    package = os.path.join(folder, "maya")
    os.mkdir(package)
    open(os.path.join(package, "__init__.py"), "w").close()
    with open(os.path.join(package, "cmds.py"), "w") as file:
        file.write(text)


def best_time(work):
    times = []
    for _ in range(ROUNDS):
        start = time.perf_counter()
        work()
        times.append(time.perf_counter() - start)
    return min(times) * 1000


def own_names(root):
    script = {"__name__": "__main__"}
    with open(os.path.join(root, "analysis", "python", "corvane_parser.py")) as file:
        exec(compile(file.read(), "corvane_parser.py", "exec"), script)
    parser = script["CorvaneParser"]
    return lambda: parser().parse_source(SOURCE + "cmds.\n", "cmds", 0, 0)


def peer_names(folder):
    import jedi
    project = jedi.Project(folder)
    line = SOURCE.count("\n") + 1
    return lambda: [name.name for name in
                    jedi.Script(SOURCE + "cmds.\n", project=project).complete(line, 5)]


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..")
    names, text = command_module()
    lend_to_host(text)
    own = own_names(root)
    with tempfile.TemporaryDirectory() as folder:
        lend_to_peer(text, folder)
        try:
            peer = peer_names(folder)
        except ImportError:
            sys.exit("jedi is not installed: not compared")
        for candidates in (own(), peer()):
            if not set(names) <= set(candidates):
                sys.exit("names are missing")
        own_time, peer_time = best_time(own), best_time(peer)
    ratio = peer_time / own_time
    print("analysis script: %.2f ms, jedi: %.2f ms" % (own_time, peer_time))
    print("ratio: %.1f (at least %.0f)" % (ratio, WANTED_RATIO))
    sys.exit(0 if ratio >= WANTED_RATIO else 1)


if __name__ == "__main__":
    main()
