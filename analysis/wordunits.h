// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>

// The characters of names that MEL and Python have in common.
inline bool isNameUnit(ushort unit)
{
    return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') ||
           (unit >= '0' && unit <= '9') || unit == '_';
}

// Beyond ASCII; units of a surrogate pair are judged by their character.
bool isForeignWordUnit(const QChar *text, int size, int index);

// Letters, numbers and marks of any script and the underscore: what \w is in a pattern.
inline bool isWordUnit(const QChar *text, int size, int index)
{
    const ushort unit = text[index].unicode();
    return unit < 0x80 ? isNameUnit(unit) : isForeignWordUnit(text, size, index);
}
