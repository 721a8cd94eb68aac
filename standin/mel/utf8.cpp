// SPDX-License-Identifier: MIT
#include "standin/mel/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace mel {

namespace {

// Stray bytes get codes that no character has.
// Beyond 0x10FFFF, so a set of a pattern takes them only when it is negated.
constexpr char32_t strayBytes = 0x200000;

// 0 for what cannot begin a character: continuation bytes, C0, C1, and F5 and beyond.
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

bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

// Whether none of the bytes has its highest bit set: then each is a character of its own.
bool isAscii(const char *bytes, size_t count)
{
    constexpr std::uint64_t highest = 0x8080808080808080u;
    // Copied, as the text need not be aligned.
    const auto eightAt = [bytes](size_t offset) {
        std::uint64_t eight;
        std::memcpy(&eight, bytes + offset, sizeof eight);
        return eight;
    };
    if (count < 8)
        return std::all_of(bytes, bytes + count, [](char c) { return isAscii(c); });
    // The last eight may have been seen already in part.
    std::uint64_t all = eightAt(count - 8);
    for (size_t offset = 0; offset + 8 < count; offset += 8)
        all |= eightAt(offset);
    return (all & highest) == 0;
}

// How many bytes are looked at together: most texts are plain ASCII.
constexpr size_t stride = 64;

// Moves `offset` on by at most `limit` characters; returns how many there were.
size_t skipCharacters(std::string_view text, size_t &offset, size_t limit)
{
    size_t count = 0;
    while (count < limit && offset < text.size()) {
        const size_t next = std::min({stride, limit - count, text.size() - offset});
        if (isAscii(text.data() + offset, next)) {
            offset += next;
            count += next;
            continue;
        }
        for (const size_t end = offset + next; count < limit && offset < end; ++count)
            offset += isAscii(text[offset]) ? 1 : characterAt(text, offset).length;
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
    // The end is counted on from the beginning, not again from the start of the text.
    const size_t skipped = skipCharacters(text, begin, first);
    size_t end = begin;
    skipCharacters(text, end, std::max(first, last) - skipped);
    return text.substr(begin, end - begin);
}

} // namespace mel
