// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/textformats.h"

// What is built in for a category.

TextFormats builtInFormats(ColorSet set);
TextFormat builtInFormat(int textIndex, ColorSet set);
// The name that the Preferences dialog shows.
const char *textName(int textIndex);

// The same for a category of the editor or of the output.
template <class Category>
TextFormat builtInFormat(Category category, ColorSet set)
{
    return builtInFormat(textIndex(category), set);
}
template <class Category>
const char *textName(Category category)
{
    return textName(textIndex(category));
}
