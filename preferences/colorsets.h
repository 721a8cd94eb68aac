// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/textformats.h"

// What is built in for a category.

TextFormat builtInFormat(EditorText category, ColorSet set);
TextFormat builtInFormat(OutputText category, ColorSet set);

// The name that the Preferences dialog shows.
const char *textName(EditorText category);
const char *textName(OutputText category);
