// SPDX-License-Identifier: MIT
#include "standin/mel/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace mel {

namespace {

// Stray bytes get codes that no character has.
constexpr char32_t strayBytes = 0x200000;

size_t lengthByLead(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

// Whether the eight bytes there are a character each.
bool eightAsciiAt(std::string_view text, size_t offset)
{
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text.data() + offset, sizeof bytes);
    return (bytes & 0x8080808080808080u) == 0;
}

// Moves `offset` on by at most `limit` characters; returns how many there were. Most texts are
// ASCII and long, so eight are taken at a time.
size_t skipCharacters(std::string_view text, size_t &offset, size_t limit)
{
    size_t count = 0;
    while (count < limit && offset < text.size()) {
        const bool eight =
            limit - count >= 8 && text.size() - offset >= 8 && eightAsciiAt(text, offset);
        offset += eight ? 8 : characterAt(text, offset).length;
        count += eight ? 8 : 1;
    }
    return count;
}

} // namespace

Character characterAt(std::string_view text, size_t offset)
{
    const auto lead = static_cast<unsigned char>(text[offset]);
    const size_t length = lengthByLead(lead);
    if (length == 1)
        return {lead, 1};
    char32_t code = lead & (0x7Fu >> length);
    for (size_t i = 1; i < length; ++i) {
        const auto byte =
            offset + i < text.size() ? static_cast<unsigned char>(text[offset + i]) : 0;
        if ((byte & 0xC0) != 0x80)
            return {strayBytes + lead, 1};
        code = code << 6 | (byte & 0x3F);
    }
    return length == 0 ? Character{strayBytes + lead, 1} : Character{code, length};
}

size_t countCharacters(std::string_view text)
{
    size_t at = 0;
    return skipCharacters(text, at, text.size());
}

std::string_view characters(std::string_view text, size_t first, size_t last)
{
    size_t begin = 0;
    const size_t skipped = skipCharacters(text, begin, first);
    size_t end = begin;
    skipCharacters(text, end, std::max(first, last) - skipped);
    return text.substr(begin, end - begin);
}

} // namespace mel
