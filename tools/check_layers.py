#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks who may include whom, and what only some folders may mention.

Usage: check_layers.py [ROOT]      exits with 1 and a line per breach
"""

import os
import re
import sys

# Upper layers first; a file includes from its own folder and from those below it.
LAYERS = ["plugin", "mainwindow", "workspace", "output", "editor", "analysis", "bridge",
          "resources", "preferences", "licensing", "compat"]
MAYA_FOLDERS = {"plugin", "bridge", "standin", "tests"}
QT_VERSION_FOLDERS = ("compat/", "tests/support/")

# Names that Qt 4.8 does not have, or that mean something else there.
TOO_NEW = re.compile(
    r"\b(QStringLiteral|QRegularExpression|QSaveFile|QSignalBlocker|QStandardPaths|QStringView|"
    r"QJsonDocument|QJsonObject|QCommandLineParser|QGuiApplication|QScreen|Q_FOREACH|Q_ENUM|qOverload|"
    r"qAsConst|QTRY_\w+|toHtmlEscaped|asprintf|fromStdString|toStdString|"
    r"horizontalAdvance|setTabStopDistance|devicePixelRatio\w*)\b"
    r"|connect\([^;]*&[A-Za-z]\w*::")
TOO_NEW_ALLOWED = ("compat/", "tests/support/", "bench/")

QT_MODULE_PREFIX = re.compile(r'#include\s*<Qt[A-Z][A-Za-z]*/')
INCLUDE = re.compile(r'#include\s*"([a-z]+)/')


def sources(root):
    for folder, folders, files in os.walk(root):
        folders[:] = [f for f in folders if not f.startswith((".", "build"))]
        for name in files:
            if name.endswith((".h", ".cpp")):
                path = os.path.join(folder, name)
                yield os.path.relpath(path, root), open(path, encoding="utf-8").read()


def layer_breaches(top, text):
    if top not in LAYERS:
        return
    for match in INCLUDE.finditer(text):
        other = match.group(1)
        if other in LAYERS and LAYERS.index(other) < LAYERS.index(top):
            yield "includes %s/, which lies above it" % other
        elif other in ("standin", "tests", "bench"):
            yield "includes %s/, which is no part of the product" % other


def breaches(path, text):
    top = path.split(os.sep)[0]
    yield from layer_breaches(top, text)
    if top not in MAYA_FOLDERS and re.search(r'#include\s*[<"]maya/', text):
        yield "includes a Maya header"
    if not path.startswith(QT_VERSION_FOLDERS) and re.search(r"\bQT_VERSION(_CHECK)?\b", text):
        yield "asks QT_VERSION"
    if QT_MODULE_PREFIX.search(text):
        yield "includes a Qt header by its module"
    if not path.startswith(TOO_NEW_ALLOWED):
        for match in TOO_NEW.finditer(text):
            yield "uses %s, which Qt 4.8 lacks" % match.group(0).split("(")[0]
    if not text.startswith("// SPDX-License-Identifier: MIT"):
        yield "lacks the SPDX line"


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else "."
    count = 0
    for path, text in sorted(sources(root)):
        for breach in breaches(path, text):
            print("%s %s" % (path, breach))
            count += 1
    print("%d breaches" % count)
    return 1 if count else 0


if __name__ == "__main__":
    sys.exit(main())
