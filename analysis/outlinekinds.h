// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/preferences.h"

// What the outline does with the items of a kind.
struct OutlineKindRow
{
    const char *icon;           // its path; empty for a number that is no kind
    bool Preferences::*hidesIt; // the preference that does, or null
    bool hasBody;               // which goes on below its name, and may hold other items
};

const int outlineKindCount = 14; // with 0, which is none

// The kind itself, or 0 for a number that is none.
int outlineKindNumber(int kind);

const OutlineKindRow &outlineKindRow(int kind);

bool isHiddenKind(int kind);
