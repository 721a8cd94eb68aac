// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What an outline item is. The numbers are kept: they choose icons and are stored in settings.
enum OutlineKind {
    GlobalProcedureItem = 1,
    LocalProcedureItem = 2,
    GlobalVariableItem = 3,
    ImportItem = 4,
    ImportAliasItem = 5,
    ImportedNameItem = 6,
    MainBlockItem = 7,
    FunctionItem = 8,
    StaticMethodItem = 9,
    ClassMethodItem = 10,
    ClassItem = 11
};

struct OutlineItem
{
    int kind = 0; // an OutlineKind
    QString name;
    int position = 0; // of the name's first character, in UTF-16 units
    int depth = 0;    // of nesting, 0 at top level
};

bool operator==(const OutlineItem &a, const OutlineItem &b);
