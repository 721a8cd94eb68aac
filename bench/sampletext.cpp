// SPDX-License-Identifier: MIT
#include "bench/sampletext.h"

namespace {

// Repeats a piece of the given number of lines, with its number in place of every %1.
QString repeated(const char *piece, int linesOfPiece, int lines)
{
    QString text;
    const QString pattern = QString::fromLatin1(piece);
    for (int i = 0; i < lines / linesOfPiece; ++i)
        text += pattern.arg(i);
    return text;
}

} // namespace

QString pythonSample(int lines)
{
    const char piece[] =
        "class Rig%1(object):\n"
        "    \"\"\"Builds the controls of one limb.\n"
        "    The names follow the studio's rules.\"\"\"\n"
        "\n"
        "    def __init__(self, name, joints=None):\n"
        "        self.name = name  # shown in the outliner\n"
        "        self.joints = joints or []\n"
        "\n"
        "    @staticmethod\n"
        "    def build(side, count=%1):\n"
        "        nodes = {\"left\": [], 'right': [(1, 2.5), (3, 4)]}\n"
        "        for index in range(count):\n"
        "            if index %% 2 == 0 and side != \"center\":\n"
        "                nodes[side].append(cmds.joint(p=(index, 0, 1.5 * index)))\n"
        "            else:\n"
        "                print(\"skipped %%d\" %% index)\n"
        "        return cmds.ls(nodes[side], long=True)\n"
        "\n"
        "import maya.cmds as cmds%1\n"
        "\n";
    return repeated(piece, 20, lines).replace(QLatin1String("%%"), QLatin1String("%"));
}

QString melSample(int lines)
{
    const char piece[] = "// Builds the controls of limb %1.\n"
                         "global proc string[] buildLimb%1(string $side, int $count)\n"
                         "{\n"
                         "    global string $gLimbNames%1[];\n"
                         "    string $nodes[];\n"
                         "    /* Even ones are joints,\n"
                         "       odd ones are groups. */\n"
                         "    for ($i = 0; $i < $count; $i++) {\n"
                         "        if ($i % 2 == 0 && $side != \"center\") {\n"
                         "            $nodes[size($nodes)] = `joint -p $i 0 (1.5 * $i)`;\n"
                         "        } else {\n"
                         "            print (\"skipped \\\"\" + $i + \"\\\"\\n\");\n"
                         "            select -r $nodes; sphere -r 2.5 -n (\"ball\" + $i);\n"
                         "        }\n"
                         "    }\n"
                         "    return $nodes;\n"
                         "}\n"
                         "\n"
                         "buildLimb%1 \"left\" 10;\n"
                         "\n";
    return repeated(piece, 20, lines);
}
