// SPDX-License-Identifier: MIT
#include "editor/indentstyle.h"

namespace {

const QLatin1Char space(' ');
const QLatin1Char tab('\t');

} // namespace

QString IndentStyle::unit() const
{
    return indentation(tabSize);
}

QString IndentStyle::indentation(int width) const
{
    const int tabs = replaceTabs ? 0 : width / tabSize;
    return QString(tabs, tab) + QString(width - tabs * tabSize, space);
}

QString IndentStyle::rewritten(const QString &indentation) const
{
    return this->indentation(width(indentation));
}

int IndentStyle::width(const QString &text) const
{
    int column = 0;
    for (QChar character : text)
        column = character == tab ? nextTabStop(column) : column + 1;
    return column;
}

// f(a,
//   |          one column behind the bracket
QString IndentStyle::alignedBehind(const QString &line, int bracketColumn) const
{
    const QString blanks = leadingBlanks(line);
    return blanks + QString(width(line.left(bracketColumn)) + 1 - width(blanks), space);
}

QString leadingBlanks(const QString &line)
{
    int end = 0;
    while (end < line.size() && (line.at(end) == space || line.at(end) == tab))
        ++end;
    return line.left(end);
}

int firstNonSpace(const QString &line)
{
    int column = 0;
    while (column < line.size() && line.at(column).isSpace())
        ++column;
    return column;
}
