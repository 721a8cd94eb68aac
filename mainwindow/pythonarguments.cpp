// SPDX-License-Identifier: MIT
#include "mainwindow/pythonarguments.h"

#include "analysis/commandword.h"
#include "analysis/wordunits.h"

namespace {

bool isOneOf(QChar c, const char *characters)
{
    return QString::fromLatin1(characters).contains(c);
}

int skipBlanks(const QString &line, int column)
{
    while (column < line.size() && line.at(column).isSpace())
        ++column;
    return column;
}

// The end of the argument that the column is in, or begins. The scan begins with the line, as only
// its start is known to be no part of a string.
int argumentEnd(const QString &line, int column)
{
    QChar quote;
    int depth = 0; // from the column on
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (!quote.isNull()) {
            if (c == QLatin1Char('\\'))
                ++i;
            else if (c == quote)
                quote = QChar();
        } else if (isOneOf(c, "'\"")) {
            quote = c;
        } else if (i >= column) {
            if (depth == 0 && isOneOf(c, ",)]};#\\"))
                return i;
            depth += isOneOf(c, "([{") ? 1 : isOneOf(c, ")]}") ? -1 : 0;
        }
    }
    return int(line.size());
}

// name = value
bool isNamed(const QString &line, int column)
{
    int end = column;
    while (end < line.size() && isNameUnit(line.at(end).unicode()))
        ++end;
    end = skipBlanks(line, end);
    return line.mid(end, 1) == QLatin1String("=") && line.mid(end, 2) != QLatin1String("==");
}

// The start of the argument without a name that is the next one; -1 when it has one or is none.
int nextPositional(const QString &line, int column)
{
    int start = skipBlanks(line, column);
    if (start < line.size() && line.at(start) == QLatin1Char(','))
        start = skipBlanks(line, start + 1);
    const bool isPositional =
        argumentFollows(line, start) && line.at(start) != QLatin1Char('*') && !isNamed(line, start);
    return isPositional ? start : -1;
}

int trimmedSize(const QString &text)
{
    int size = int(text.size());
    while (size > 0 && text.at(size - 1).isSpace())
        --size;
    return size;
}

} // namespace

int outOfBrackets(const QString &line, int column, const QString &function)
{
    int outermost = column;
    int closed = 0;
    for (int i = column - 1; i >= 0; --i) {
        const QChar c = line.at(i);
        if (isOneOf(c, ")]}"))
            ++closed;
        if (!isOneOf(c, "([{") || closed-- > 0)
            continue;
        if (c == QLatin1Char('(') && commandWordAt(line, i) == function)
            return outermost;
        outermost = i;
        closed = 0;
    }
    return column;
}

bool startsArgument(const QString &before)
{
    const int size = trimmedSize(before);
    return size == 0 || isOneOf(before.at(size - 1), "(,");
}

bool argumentFollows(const QString &line, int column)
{
    const int start = skipBlanks(line, column);
    return start < line.size() && !isOneOf(line.at(start), ",)]};:#\\");
}

int keywordPlace(const QString &line, int column)
{
    int place = column;
    if (!startsArgument(line.left(column)))
        place = trimmedSize(line.left(argumentEnd(line, column)));
    for (int next = nextPositional(line, place); next >= 0; next = nextPositional(line, place))
        place = trimmedSize(line.left(argumentEnd(line, next)));
    return place;
}

int closingOfCall(const QString &line, int column, const QString &function)
{
    int closing = column - 1;
    while (closing >= 0 && (line.at(closing).isSpace() || line.at(closing) == QLatin1Char(';')))
        --closing;
    if (closing < 0 || line.at(closing) != QLatin1Char(')'))
        return -1;
    int open = closing;
    for (int depth = 1; depth > 0 && --open >= 0;)
        depth += line.at(open) == QLatin1Char(')') ? 1 : line.at(open) == QLatin1Char('(') ? -1 : 0;
    return open >= 0 && commandWordAt(line, open) == function ? closing : -1;
}
