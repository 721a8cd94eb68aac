// SPDX-License-Identifier: MIT
#include "analysis/sourcecursor.h"

#include <cstring>

bool SourceCursor::isSpace(int index) const
{
    return isInside(index) && m_data[index].isSpace();
}

// Here and below a loop over the units: QString's own search would need a string of the text, and
// the texts that are looked for are too short for it to gain anything.
int SourceCursor::find(char character, int from) const
{
    for (int i = from; i < m_size; ++i) {
        if (m_data[i].unicode() == ushort(character))
            return i;
    }
    return -1;
}

int SourceCursor::findEither(char first, char second, int from) const
{
    for (int i = from; i < m_size; ++i) {
        const ushort unit = m_data[i].unicode();
        if (unit == ushort(first) || unit == ushort(second))
            return i;
    }
    return -1;
}

int SourceCursor::findText(const char *ascii, int from) const
{
    for (int i = find(*ascii, from); i >= 0; i = find(*ascii, i + 1)) {
        if (startsWith(ascii, i))
            return i;
    }
    return -1;
}

int SourceCursor::findSolid(int from) const
{
    for (int i = from; i < m_size; ++i) {
        if (!m_data[i].isSpace())
            return i;
    }
    return -1;
}

int SourceCursor::lineEnd(int from) const
{
    const int end = find('\n', from);
    return end < 0 ? m_size : end;
}

bool SourceCursor::startsWith(const char *ascii, int at) const
{
    for (; *ascii; ++ascii, ++at) {
        if (at >= m_size || m_data[at].unicode() != ushort(*ascii))
            return false;
    }
    return true;
}

bool SourceCursor::isText(const char *ascii, int begin, int end) const
{
    return end - begin == int(std::strlen(ascii)) && startsWith(ascii, begin);
}

int SourceCursor::backslashesBefore(int index) const
{
    int count = 0;
    while (at(index - count - 1) == '\\')
        ++count;
    return count;
}

int SourceCursor::skipBlanks(int from) const
{
    while (at(from) == ' ' || at(from) == '\t')
        ++from;
    return from;
}

int SourceCursor::skipLineSpace(int from) const
{
    while (isSpace(from) && at(from) != '\n')
        ++from;
    return from;
}

int SourceCursor::skipPath(int from) const
{
    while (isNameUnit(at(from)) || at(from) == '.')
        ++from;
    return from;
}

// The borders of the searched stretch are borders of words, as if nothing lay outside it.
bool SourceCursor::isWordWithin(int index, int begin, int end) const
{
    return index >= begin && index < end && isWord(index);
}

bool SourceCursor::hasWord(const char *ascii, int begin, int end) const
{
    const int length = int(std::strlen(ascii));
    for (int i = begin; i + length <= end; ++i) {
        if (at(i) == ushort(*ascii) && startsWith(ascii, i) && !isWordWithin(i - 1, begin, end) &&
            !isWordWithin(i + length, begin, end))
            return true;
    }
    return false;
}
