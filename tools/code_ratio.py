#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints how many lines of code the tests and the rest have, and the share of the tests.

Usage: code_ratio.py [ROOT]
"""

import os
import sys

SUFFIXES = (".cpp", ".h", ".py", ".mel")


def is_test(path):
    return path.startswith("tests" + os.sep)


def code_lines(path):
    with open(path, encoding="utf-8", errors="replace") as file:
        return sum(1 for line in file if line.strip())


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else "."
    tests = rest = 0
    for folder, folders, files in os.walk(root):
        folders[:] = [f for f in folders if not f.startswith((".", "build"))]
        for name in files:
            path = os.path.relpath(os.path.join(folder, name), root)
            if not name.endswith(SUFFIXES):
                continue
            count = code_lines(os.path.join(root, path))
            if is_test(path):
                tests += count
            else:
                rest += count
    share = 100.0 * tests / max(1, tests + rest)
    print("tests %d lines, everything else %d lines: %.0f %% tests" % (tests, rest, share))


if __name__ == "__main__":
    main()
