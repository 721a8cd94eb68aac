// SPDX-License-Identifier: MIT
#include "standin/sdk/utf8.h"

#include <cstddef>
#include <cstdint>

namespace standin {

namespace {

constexpr char32_t replacement = 0xfffd;
constexpr bool wideIsUtf16 = sizeof(wchar_t) == 2;

// Number of continuation bytes that the first byte announces, -1 for one that cannot come first:
// a continuation byte, 0xc0 and 0xc1, which only begin overlong forms, and 0xf5 on, which lies
// beyond the last character.
int continuationBytes(unsigned char first)
{
    if (first < 0x80)
        return 0;
    if (first >= 0xc2 && first < 0xe0)
        return 1;
    if (first >= 0xe0 && first < 0xf0)
        return 2;
    return first >= 0xf0 && first < 0xf5 ? 3 : -1;
}

// Refuses overlong forms, which hide ASCII characters, and halves of surrogate pairs.
bool isValid(char32_t code, int continuations)
{
    static const char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xd800 && code < 0xe000;
    return code >= smallest[continuations] && code <= 0x10ffff && !surrogate;
}

// The character at the position, which moves behind it; behind one byte when it is not valid.
char32_t nextCharacter(const std::string &text, size_t &position)
{
    // Moves on by one byte first: whatever is wrong below, the next try begins behind that byte.
    const unsigned char first = static_cast<unsigned char>(text[position++]);
    const int continuations = continuationBytes(first);
    if (continuations <= 0)
        return continuations == 0 ? first : replacement;
    if (text.size() - position < static_cast<size_t>(continuations))
        return replacement;
    // The first byte holds the highest five, four or three bits.
    char32_t code = first & (0x3f >> continuations);
    for (int i = 0; i < continuations; ++i) {
        const unsigned char byte = static_cast<unsigned char>(text[position + i]);
        if ((byte & 0xc0) != 0x80)
            return replacement;
        code = code << 6 | (byte & 0x3f);
    }
    if (!isValid(code, continuations))
        return replacement;
    position += continuations;
    return code;
}

// The code is a valid character; callers replace the others.
void appendUtf8(std::string &text, char32_t code)
{
    if (code < 0x80) {
        text += static_cast<char>(code);
        return;
    }
    const int continuations = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    // 110xxxxx, 1110xxxx, 11110xxx: one leading one for each byte of the character.
    const int leadingOnes = 0xff00 >> (continuations + 1) & 0xff;
    text += static_cast<char>(leadingOnes | code >> (6 * continuations));
    for (int i = continuations - 1; i >= 0; --i)
        text += static_cast<char>(0x80 | (code >> (6 * i) & 0x3f));
}

// Whether a UTF-16 surrogate pair stands at the position.
bool isPair(const std::wstring &text, size_t position)
{
    const auto isBetween = [&](size_t at, char32_t low) {
        return at < text.size() && static_cast<char32_t>(text[at]) - low < 0x400;
    };
    return isBetween(position, 0xd800) && isBetween(position + 1, 0xdc00);
}

} // namespace

std::wstring wideFromUtf8(const std::string &text)
{
    std::wstring wide;
    wide.reserve(text.size());
    for (size_t position = 0; position < text.size();) {
        const char32_t code = nextCharacter(text, position);
        // Beyond the first plane UTF-16 needs two units with ten bits each.
        if (wideIsUtf16 && code > 0xffff) {
            wide += static_cast<wchar_t>(0xd800 + ((code - 0x10000) >> 10));
            wide += static_cast<wchar_t>(0xdc00 + (code & 0x3ff));
        } else {
            wide += static_cast<wchar_t>(code);
        }
    }
    return wide;
}

std::string utf8FromWide(const std::wstring &text)
{
    std::string bytes;
    for (size_t position = 0; position < text.size(); ++position) {
        char32_t code = static_cast<char32_t>(text[position]);
        // Joined whatever the size of wchar_t: text that came from UTF-16 may hold pairs.
        if (isPair(text, position))
            code = 0x10000 + ((code - 0xd800) << 10) + (text[++position] - 0xdc00);
        appendUtf8(bytes, isValid(code, 0) ? code : replacement);
    }
    return bytes;
}

} // namespace standin
