# SPDX-License-Identifier: MIT
"""The layer check must notice every kind of breach, and nothing else."""

import os
import subprocess
import sys
import tempfile
import unittest

TOOL = os.path.join(os.path.dirname(__file__), "..", "..", "tools", "check_layers.py")
HEAD = "// SPDX-License-Identifier: MIT\n"


def check(files):
    with tempfile.TemporaryDirectory() as root:
        for path, text in files.items():
            os.makedirs(os.path.dirname(os.path.join(root, path)), exist_ok=True)
            with open(os.path.join(root, path), "w", encoding="utf-8") as file:
                file.write(text)
        run = subprocess.run([sys.executable, TOOL, root], stdout=subprocess.PIPE, check=False)
        return run.returncode, run.stdout.decode()


class CheckLayers(unittest.TestCase):
    def test_each_breach_is_named(self):
        rows = [
            ("output/a.cpp", '#include "mainwindow/kestrowl.h"', "lies above it"),
            ("output/a.cpp", '#include "standin/host/session.h"', "no part of the product"),
            ("editor/a.cpp", "#include <maya/MGlobal.h>", "Maya header"),
            ("editor/a.h", "#if QT_VERSION > 0", "asks QT_VERSION"),
            ("editor/a.cpp", "#include <QtGui/QWidget>", "by its module"),
            ("editor/a.cpp", 'auto text = QStringLiteral("x");', "uses QStringLiteral"),
            ("editor/a.cpp", "connect(a, &A::changed, b, &B::update);", "which Qt 4.8 lacks"),
        ]
        for path, line, expected in rows:
            status, output = check({path: HEAD + line})
            self.assertEqual(status, 1, line)
            self.assertIn(expected, output)
            self.assertIn("\n1 breaches", output)

    def test_missing_licence_line_is_named(self):
        self.assertIn("SPDX", check({"editor/a.cpp": "int x;\n"})[1])

    def test_what_is_allowed_passes(self):
        status, output = check({
            "mainwindow/a.cpp": HEAD + '#include "output/b.h"\n#include <QWidget>\n',
            "compat/a.h": HEAD + "#if QT_VERSION > 0\n#include <QRegularExpression>\n",
            "bridge/a.cpp": HEAD + "#include <maya/MGlobal.h>\n",
        })
        self.assertEqual((status, output), (0, "0 breaches\n"))


if __name__ == "__main__":
    unittest.main()
