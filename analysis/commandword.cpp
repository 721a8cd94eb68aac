// SPDX-License-Identifier: MIT
#include "analysis/commandword.h"

#include "analysis/wordunits.h"

namespace {

bool isNamePart(QChar c)
{
    return isNameUnit(c.unicode()) || c == QLatin1Char('.');
}

int runStart(const QString &text, int end)
{
    while (end > 0 && isNamePart(text.at(end - 1)))
        --end;
    return end;
}

int runEnd(const QString &text, int start)
{
    while (start < text.size() && isNamePart(text.at(start)))
        ++start;
    return start;
}

// cmds.polySphere
//      |        the module by whatever name; a dot at the end waits for more
QString lastName(const QString &text, int start, int end)
{
    if (start > 0 && text.at(start - 1) == QLatin1Char('$'))
        return QString();
    QString name = text.mid(start, end - start);
    while (name.endsWith(QLatin1Char('.')))
        name.chop(1);
    name = name.mid(name.lastIndexOf(QLatin1Char('.')) + 1);
    return name.isEmpty() || name.at(0).isDigit() ? QString() : name;
}

QString firstName(const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        const int end = runEnd(text, i);
        const QString name = lastName(text, i, end);
        if (!name.isEmpty())
            return name;
        i = end;
    }
    return QString();
}

bool endsStatement(QChar c)
{
    return c == QLatin1Char(';') || c == QLatin1Char('{') || c == QLatin1Char('}') ||
           c == QLatin1Char('`');
}

// Where the argument list begins that the column is in: behind an opening parenthesis that is not
// closed again, or at the start of the statement.
int argumentsStart(const QString &line, int column)
{
    int closed = 0;
    for (int i = column; i > 0; --i) {
        const QChar c = line.at(i - 1);
        if (c == QLatin1Char(')'))
            ++closed;
        else if (c == QLatin1Char('(') && closed-- == 0)
            return i;
        else if (closed == 0 && endsStatement(c))
            return i;
    }
    return 0;
}

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t');
}

// -scale      but not the difference in 1 -scale(2)
bool hasDash(const QString &line, int start, int end)
{
    if (start == 0 || line.at(start - 1) != QLatin1Char('-') ||
        line.mid(end, 1) == QLatin1String("("))
        return false;
    return start == 1 || isBlank(line.at(start - 2)) ||
           QString::fromLatin1("(`").contains(line.at(start - 2));
}

bool isParameter(const QString &line, int start, int end)
{
    while (end < line.size() && isBlank(line.at(end)))
        ++end;
    const int arguments = argumentsStart(line, start);
    return arguments > 0 && line.at(arguments - 1) == QLatin1Char('(') &&
           line.mid(end, 1) == QLatin1String("=") && line.mid(end, 2) != QLatin1String("==");
}

} // namespace

QString commandWord(const QString &text)
{
    return firstName(text);
}

QString commandWordAt(const QString &line, int column)
{
    const int at = qBound(0, column, int(line.size()));
    return lastName(line, runStart(line, at), runEnd(line, at));
}

bool isFlagAt(const QString &line, int column)
{
    const int at = qBound(0, column, int(line.size()));
    const int start = runStart(line, at);
    const int end = runEnd(line, at);
    const bool isPath = line.mid(start, end - start).contains(QLatin1Char('.'));
    return start < end && !isPath && (hasDash(line, start, end) || isParameter(line, start, end));
}

QString commandBefore(const QString &line, int column)
{
    const int at = qBound(0, column, int(line.size()));
    const int start = argumentsStart(line, at);
    if (start > 0 && line.at(start - 1) == QLatin1Char('(')) {
        const QString called = commandWordAt(line, start - 1);
        if (!called.isEmpty())
            return called;
    }
    return firstName(line.mid(start, at - start));
}
