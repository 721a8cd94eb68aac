#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that functions and files stay small, and prints how long they are.

Usage: check_size.py [ROOT]      exits with 1 and a line per breach

Relies on the formatting: the braces around a function at namespace level stand alone in the first
column.
"""

import os
import statistics
import sys

LONGEST_FUNCTION = 60
LONGEST_FILE = 500


def sources(root):
    for folder, folders, files in os.walk(root):
        folders[:] = [f for f in folders if not f.startswith((".", "build"))]
        for name in files:
            if name.endswith((".h", ".cpp")):
                yield os.path.join(folder, name)


def functions(lines):
    """Yields (line number of the opening brace, lines between the braces)."""
    start = None
    for number, line in enumerate(lines, 1):
        if line == "{" and not lines[number - 2].startswith(("class", "struct", "namespace", "enum")):
            start = number
        elif line.startswith("}") and start:
            # A table of test rows is as long as it is.
            if line == "}" and not lines[start - 2].endswith("_data()"):
                yield start, number - start - 1
            start = None


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else "."
    breaches = 0
    lengths, sizes = [], []
    for path in sorted(sources(root)):
        lines = open(path, encoding="utf-8").read().splitlines()
        name = os.path.relpath(path, root)
        if path.endswith(".cpp"):
            sizes.append(len(lines))
        if len(lines) > LONGEST_FILE and not name.startswith("tests" + os.sep):
            print("%s has %d lines" % (name, len(lines)))
            breaches += 1
        for number, length in functions(lines):
            lengths.append(length)
            if length > LONGEST_FUNCTION:
                print("%s:%d a function of %d lines" % (name, number, length))
                breaches += 1
    if lengths:
        ordered = sorted(lengths)
        print("functions: median %d, 95%% under %d; .cpp files: median %d lines"
              % (statistics.median(ordered), ordered[int(len(ordered) * 0.95)], statistics.median(sizes)))
    print("%d breaches" % breaches)
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
