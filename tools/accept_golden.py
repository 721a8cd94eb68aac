#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Takes what parsers and scanners say now as the accepted outputs of tests/golden.

Usage: accept_golden.py BUILD_DIR [ROOT]

Prints the outputs that changed; read their difference before committing it.
"""

import os
import subprocess
import sys

SUFFIXES = {"mel": ".mel", "python": ".py"}


def contents(path):
    if not os.path.exists(path):
        return None
    with open(path, "rb") as file:
        return file.read()


def accept(dump, folder, language):
    files = os.listdir(folder)
    inputs = sorted(name for name in files if name.endswith(SUFFIXES[language]))
    outputs = {name + ".json" for name in inputs}
    for name in set(files) - set(inputs) - outputs:
        os.remove(os.path.join(folder, name))
        print("removed", name)
    for name in inputs:
        # The output names its file, so no folder may stand before it.
        output = subprocess.run([dump, language, "--names", "../names.txt", "--lines", name],
                                cwd=folder, check=True, stdout=subprocess.PIPE).stdout
        path = os.path.join(folder, name + ".json")
        if contents(path) != output:
            with open(path, "wb") as file:
                file.write(output)
            print("accepted", name)


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    root = sys.argv[2] if len(sys.argv) > 2 else "."
    dump = os.path.abspath(os.path.join(sys.argv[1], "tests", "dump", "corvane-dump"))
    for language in SUFFIXES:
        accept(dump, os.path.join(root, "tests", "golden", language), language)


if __name__ == "__main__":
    main()
