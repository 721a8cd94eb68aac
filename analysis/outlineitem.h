// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What an outline item is. The numbers are fixed: whoever reads a parser's results goes by them.
enum OutlineKind {
    GlobalProcedureItem = 1, // MEL: global proc
    LocalProcedureItem = 2,  // proc
    GlobalVariableItem = 3,  // global string $name
    ImportItem = 4,          // Python: import os.path
    ImportAliasItem = 5,     // import os.path as path
    ImportedNameItem = 6,    // from os import path
    MainBlockItem = 7,       // if __name__ == "__main__"
    FunctionItem = 8,        // def, in a class too
    StaticMethodItem = 9,    // def below @staticmethod
    ClassMethodItem = 10,    // def below @classmethod
    ClassItem = 11
};

// An entry of the outline. A plain value: it does not follow later edits of the text.
struct OutlineItem
{
    int kind = 0;     // an OutlineKind
    QString name;     // as the outline shows it: "path = os.path", "path (os)"
    int position = 0; // of the name's first character, 0-based in UTF-16 units
    int depth = 0;    // of nesting, 0 at top level
};

bool operator==(const OutlineItem &a, const OutlineItem &b);
