// SPDX-License-Identifier: MIT
#include "mainwindow/initext.h"

#include <QByteArray>

namespace {

// What QSettings takes a text for an object by.
const char *const objectMarks[] = {"@Variant(", "@DateTime("};

const QByteArray utf8Mark("\xef\xbb\xbf");

bool isHexDigit(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

bool isOctalDigit(char character)
{
    return character >= '0' && character <= '7';
}

// The character that the digits at `*position` stand for, any number of them; moves behind them.
// QSettings counts the lower 16 bits. Beyond ASCII nothing matters here: that is 0.
char codedCharacter(const QByteArray &bytes, int base, int *position)
{
    const int start = *position;
    while (*position < bytes.size() &&
           (base == 16 ? isHexDigit(bytes.at(*position)) : isOctalDigit(bytes.at(*position))))
        ++*position;
    // Four hexadecimal or six octal digits hold these bits; more would not fit into a number.
    const int digits = qMin(*position - start, base == 16 ? 4 : 6);
    const int value = bytes.mid(*position - digits, digits).toInt(nullptr, base) & 0xffff;
    return value < 0x80 ? char(value) : 0;
}

// The character whose escape has its backslash before `*position`; moves behind it. 0 for those of
// control characters, and for unknown ones, which QSettings leaves out.
char escapedCharacter(const QByteArray &bytes, int *position)
{
    if (isOctalDigit(bytes.at(*position)))
        return codedCharacter(bytes, 8, position);
    return bytes.at((*position)++) == 'x' ? codedCharacter(bytes, 16, position) : 0;
}

// How many bytes from `position` on QSettings may leave out of a word: quotes, blanks behind them,
// line breaks, and the mark of UTF-8, which decoders drop at the start of every piece that they
// get.
int skippedAt(const QByteArray &bytes, int position)
{
    switch (bytes.at(position)) {
    case '"':
    case ' ':
    case '\t':
    case '\r':
    case '\n':
        return 1;
    case '\xef':
        return bytes.mid(position, 3) == utf8Mark ? 3 : 0;
    default:
        return 0;
    }
}

// The bytes with escapes resolved, and without what may stand between the letters of a word that
// QSettings reads as one.
QByteArray joined(const QByteArray &bytes)
{
    QByteArray text;
    text.reserve(bytes.size());
    for (int i = 0; i < bytes.size();) {
        if (const int skipped = skippedAt(bytes, i)) {
            i += skipped;
            continue;
        }
        char character = bytes.at(i++);
        if (character == '\\' && i < bytes.size())
            character = escapedCharacter(bytes, &i);
        if (character != 0)
            text += character;
    }
    return text;
}

// Only where a value or a list's element may start: a path may hold the same word. Which commas and
// signs of equality are texts is not asked, rather too many marks count than too few.
bool holdsObject(const QByteArray &text, const QByteArray &mark)
{
    for (int at = int(text.indexOf(mark)); at >= 0; at = int(text.indexOf(mark, at + 1))) {
        if (at == 0 || text.at(at - 1) == '=' || text.at(at - 1) == ',')
            return true;
    }
    return false;
}

} // namespace

bool isIniText(const QByteArray &bytes)
{
    if (bytes.contains('\0'))
        return false;
    const QByteArray text = joined(bytes);
    for (const char *mark : objectMarks) {
        if (holdsObject(text, mark))
            return false;
    }
    return true;
}

QByteArray withoutByteOrderMark(const QByteArray &bytes)
{
    return bytes.startsWith(utf8Mark) ? bytes.mid(utf8Mark.size()) : bytes;
}
