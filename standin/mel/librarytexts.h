// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace mel {

// A library procedure: its name and its MEL text.
// The text defines that procedure and no other, and calls only what is built in or in the library.
struct LibraryText
{
    const char *name;
    const char *text;
};

extern const LibraryText libraryTexts[];
extern const size_t libraryTextCount;

// Those that exist for arrays of string, int and float. The names lack the type in front, the
// texts have TYPE in its place.
extern const LibraryText arrayLibraryTexts[];
extern const size_t arrayLibraryTextCount;

} // namespace mel
