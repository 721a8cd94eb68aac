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

// How many bytes are looked at together where a text is plain ASCII, as most are.
constexpr size_t stride = 32;
constexpr size_t shortStride = 8;

// Whether that many bytes follow, each a character of its own.
template <size_t count>
bool isAsciiStride(std::string_view text, size_t offset)
{
    if (text.size() - offset < count)
        return false;
    // Copied, as the text need not be aligned.
    std::uint64_t words[count / 8];
    std::memcpy(words, text.data() + offset, count);
    std::uint64_t all = 0;
    for (const std::uint64_t word : words)
        all |= word;
    return (all & 0x8080808080808080u) == 0;
}

// Moves `offset` on by at most `limit` characters; returns how many there were.
size_t skipCharacters(std::string_view text, size_t &offset, size_t limit)
{
    size_t count = 0;
    while (count < limit && offset < text.size()) {
        if (limit - count >= stride && isAsciiStride<stride>(text, offset)) {
            offset += stride;
            count += stride;
            continue;
        }
        if (limit - count >= shortStride && isAsciiStride<shortStride>(text, offset)) {
            offset += shortStride;
            count += shortStride;
            continue;
        }
        for (const size_t end = std::min(offset + stride, text.size());
             count < limit && offset < end; ++count)
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
