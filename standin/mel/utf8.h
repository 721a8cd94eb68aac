// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Characters of UTF-8 text. A byte that belongs to no valid character counts as one of its own, so
// every text has a well-defined length and nothing is lost.
namespace mel {

struct Character
{
    char32_t code = 0;
    size_t length = 0; // bytes
};

// The character at a byte offset within the text.
// `offset` must be within the text; the length is at least 1.
Character characterAt(std::string_view text, size_t offset);

size_t countCharacters(std::string_view text);

// Characters first to last, counted from 0, `last` exclusive and cut at the end.
std::string_view characters(std::string_view text, size_t first, size_t last);

} // namespace mel
