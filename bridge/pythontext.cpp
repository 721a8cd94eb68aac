// SPDX-License-Identifier: MIT
#include "bridge/pythontext.h"

namespace {

// Half a pair without the other half; a whole pair is one character and stands as it is.
bool isHalfOfPair(const QString &text, int index)
{
    const QChar unit = text.at(index);
    if (unit.isHighSurrogate())
        return index + 1 == text.size() || !text.at(index + 1).isLowSurrogate();
    return unit.isLowSurrogate() && (index == 0 || !text.at(index - 1).isHighSurrogate());
}

// Control characters, of which a line break would end the literal and NUL the whole text.
bool needsNumber(const QString &text, int index)
{
    const ushort unit = text.at(index).unicode();
    return unit < 0x20 || unit == 0x7f || isHalfOfPair(text, index);
}

// "\n" would do for one of them, but not for NUL before a digit.
void addNumber(QString &literal, ushort unit)
{
    static const char digits[] = "0123456789abcdef";
    const int digitCount = unit < 0x100 ? 2 : 4;
    literal += QLatin1Char('\\');
    literal += QLatin1Char(digitCount == 2 ? 'x' : 'u');
    for (int shift = 4 * (digitCount - 1); shift >= 0; shift -= 4)
        literal += QLatin1Char(digits[(unit >> shift) & 0xf]);
}

} // namespace

QString quotedForPython(const QString &text)
{
    const QLatin1Char quote('"');
    const QLatin1Char backslash('\\');
    QString literal(quote);
    literal.reserve(text.size() + text.size() / 8 + 2);
    for (int i = 0; i < text.size(); ++i) {
        if (needsNumber(text, i)) {
            addNumber(literal, text.at(i).unicode());
            continue;
        }
        if (text.at(i) == quote || text.at(i) == backslash)
            literal += backslash;
        literal += text.at(i);
    }
    return literal += quote;
}
