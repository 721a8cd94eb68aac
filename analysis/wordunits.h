// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>
#include <QString>

// Which UTF-16 units make up names and words. Single units where that will do: a scan asks about
// each of a text.
//
// The characters of names that MEL and Python have in common: a-z A-Z 0-9 _.
inline bool isNameUnit(ushort unit)
{
    return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') ||
           (unit >= '0' && unit <= '9') || unit == '_';
}

// Behind the name, and behind the blanks and line ends, that begin at the start; the start where
// none do, and never beyond the end.
inline int nameEnd(const QString &text, int start, int end)
{
    while (start < end && isNameUnit(text.at(start).unicode()))
        ++start;
    return start;
}

inline int spaceEnd(const QString &text, int start, int end)
{
    while (start < end && text.at(start).isSpace())
        ++start;
    return start;
}

inline int nameEnd(const QString &text, int start)
{
    return nameEnd(text, start, int(text.size()));
}

inline int spaceEnd(const QString &text, int start)
{
    return spaceEnd(text, start, int(text.size()));
}

// The part of isWordUnit() beyond ASCII, apart so that the common part is inlined. Units of a
// surrogate pair are judged by their character, a half without its other half is none of a word.
bool isForeignWordUnit(const QChar *text, int size, int index);

// Letters, numbers and marks of any script and the underscore: what \w is in a pattern. `index`
// lies inside the text, which has `size` units.
inline bool isWordUnit(const QChar *text, int size, int index)
{
    const ushort unit = text[index].unicode();
    return unit < 0x80 ? isNameUnit(unit) : isForeignWordUnit(text, size, index);
}
