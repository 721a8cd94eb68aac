// SPDX-License-Identifier: MIT
#include "mainwindow/initext.h"

#include <QByteArray>

namespace {

// What QSettings takes a text for an object by.
const char *const objectMarks[] = {"@Variant(", "@DateTime("};

const char utf8Mark[] = "\xef\xbb\xbf";

bool isHexDigit(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

bool isOctalDigit(char character)
{
    return character >= '0' && character <= '7';
}

int digitValue(char digit)
{
    return digit <= '9' ? digit - '0' : (digit | 0x20) - 'a' + 10;
}

// The character that the digits at `*position` stand for, any number of them; moves behind them.
// QSettings counts the lower 16 bits. Beyond ASCII nothing matters here: that is 0.
char codedCharacter(const QByteArray &bytes, int base, int *position)
{
    int value = 0;
    for (; *position < bytes.size(); ++*position) {
        const char digit = bytes.at(*position);
        if (!(base == 16 ? isHexDigit(digit) : isOctalDigit(digit)))
            break;
        value = (value * base + digitValue(digit)) & 0xffff;
    }
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
// line breaks, and the mark of UTF-8, which decoders drop at the start of every piece.
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
    QByteArray text(bytes.size(), '\0');
    char *end = text.data(); // written through: there is one letter after the other
    for (int i = 0; i < bytes.size();) {
        if (const int skipped = skippedAt(bytes, i)) {
            i += skipped;
            continue;
        }
        char character = bytes.at(i++);
        if (character == '\\' && i < bytes.size())
            character = escapedCharacter(bytes, &i);
        if (character != 0)
            *end++ = character;
    }
    text.truncate(int(end - text.constData()));
    return text;
}

// Only where a value or a list's element may start: a path may hold the same word. Quoted commas
// and signs of equality count too; to follow the quotes as QSettings does is not worth a crash.
bool holdsObject(const QByteArray &text)
{
    for (int at = int(text.indexOf('@')); at >= 0; at = int(text.indexOf('@', at + 1))) {
        if (at > 0 && text.at(at - 1) != '=' && text.at(at - 1) != ',')
            continue;
        for (const char *mark : objectMarks) {
            if (qstrncmp(text.constData() + at, mark, qstrlen(mark)) == 0)
                return true;
        }
    }
    return false;
}

} // namespace

bool isIniText(const QByteArray &bytes)
{
    return !bytes.contains('\0') && !holdsObject(joined(bytes));
}

QByteArray withoutByteOrderMark(const QByteArray &bytes)
{
    return bytes.startsWith(utf8Mark) ? bytes.mid(int(qstrlen(utf8Mark))) : bytes;
}
