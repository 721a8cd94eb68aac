// SPDX-License-Identifier: MIT
#include "standin/mel/utf8.h"

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
    size_t count = 0;
    for (size_t at = 0; at < text.size(); ++count)
        at += characterAt(text, at).length;
    return count;
}

std::string_view characters(std::string_view text, size_t first, size_t last)
{
    size_t begin = 0;
    size_t count = 0;
    for (; count < first && begin < text.size(); ++count)
        begin += characterAt(text, begin).length;
    size_t end = begin;
    for (; count < last && end < text.size(); ++count)
        end += characterAt(text, end).length;
    return text.substr(begin, end - begin);
}

} // namespace mel
