// SPDX-License-Identifier: MIT
#include "analysis/commandword.h"

#include "analysis/wordunits.h"

#include <vector>

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

// sets -add set1 (`ls -type joint`) -|
// |                                     what is in parentheses is passed over
//
// Braces end a statement too, but not those of a list or a dictionary: ls({1: 2}, |
int statementStart(const QString &code, int column)
{
    int behindBrace = 0;
    int closed = 0;
    for (int i = column; i > 0; --i) {
        const ushort unit = code.at(i - 1).unicode();
        if (unit == ')')
            ++closed;
        else if (unit == '(' && closed-- == 0)
            behindBrace = closed = 0;
        else if (unit == ';' && closed == 0)
            return qMax(i, behindBrace);
        else if ((unit == '{' || unit == '}') && closed == 0 && behindBrace == 0)
            behindBrace = i;
    }
    return behindBrace;
}

// Where the parentheses and backquotes begin that are open at the column, the innermost last.
std::vector<int> openEnclosures(const QString &code, int start, int column)
{
    std::vector<int> open;
    for (int i = start; i < column; ++i) {
        const ushort unit = code.at(i).unicode();
        const bool isInBackquotes = !open.empty() && code.at(open.back()) == QLatin1Char('`');
        if (unit == '(' || (unit == '`' && !isInBackquotes))
            open.push_back(i);
        else if (!open.empty() && (unit == '`' || (unit == ')' && !isInBackquotes)))
            open.pop_back();
    }
    return open;
}

int behindParentheses(const QString &code, int from, int end)
{
    int depth = 0;
    for (int i = spaceEnd(code, from, end); i < end; ++i) {
        if (code.at(i) == QLatin1Char('('))
            ++depth;
        else if (code.at(i) == QLatin1Char(')'))
            --depth;
        if (depth == 0)
            return i + 1;
    }
    return end;
}

bool hasCondition(const QString &word)
{
    return word == QLatin1String("if") || word == QLatin1String("for") ||
           word == QLatin1String("while") || word == QLatin1String("switch");
}

// Behind a keyword that a command may follow in the same statement, and what belongs to it; -1 for
// any other word.
int behindHead(const QString &word, const QString &code, int wordEnd, int end)
{
    if (word == QLatin1String("else") || word == QLatin1String("do"))
        return wordEnd;
    if (hasCondition(word))
        return behindParentheses(code, wordEnd, end);
    if (word != QLatin1String("case") && word != QLatin1String("default"))
        return -1;
    const int colon = int(code.indexOf(QLatin1Char(':'), wordEnd));
    return colon < 0 || colon >= end ? end : colon + 1;
}

// The word that a statement, or what is in backquotes, begins with.
QString leadingCommand(const QString &code, int from, int end)
{
    QString word;
    while (from >= 0) {
        const int start = spaceEnd(code, from, end);
        const int wordEnd = nameEnd(code, start, end);
        word = code.mid(start, wordEnd - start);
        from = behindHead(word, code, wordEnd, end);
    }
    return word.isEmpty() || word.at(0).isDigit() ? QString() : word;
}

// The name at which a parenthesis opens, perhaps after a gap; empty where it only groups.
QString calledAt(const QString &code, int parenthesis, bool withGap)
{
    int end = parenthesis;
    while (withGap && end > 0 && code.at(end - 1).isSpace())
        --end;
    const QString name = commandWordAt(code.left(end), end);
    return hasCondition(name) ? QString() : name;
}

QStringList callsAround(const QString &code, int column, bool withGaps)
{
    const int end = qBound(0, column, int(code.size()));
    const int start = statementStart(code, end);
    const std::vector<int> open = openEnclosures(code, start, end);
    QStringList names;
    for (auto place = open.rbegin(); place != open.rend(); ++place) {
        const bool isCall = code.at(*place) == QLatin1Char('(');
        names << (isCall ? calledAt(code, *place, withGaps)
                         : leadingCommand(code, *place + 1, end));
    }
    names << leadingCommand(code, start, end);
    names.removeAll(QString());
    return names;
}

// -scale      but not the difference in 1 -scale(2)
bool hasDash(const QString &line, int start, int end)
{
    if (start == 0 || line.at(start - 1) != QLatin1Char('-') ||
        line.mid(end, 1) == QLatin1String("("))
        return false;
    return start == 1 || line.at(start - 2).isSpace() ||
           QString::fromLatin1("(`").contains(line.at(start - 2));
}

bool isParameter(const QString &code, int start, int end)
{
    const int next = spaceEnd(code, end);
    const std::vector<int> open = openEnclosures(code, statementStart(code, start), start);
    return !open.empty() && code.at(open.back()) == QLatin1Char('(') &&
           code.mid(next, 1) == QLatin1String("=") && code.mid(next, 2) != QLatin1String("==");
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

bool isFlagAt(const QString &code, int column)
{
    const int at = qBound(0, column, int(code.size()));
    const int start = runStart(code, at);
    const int end = runEnd(code, at);
    const bool isPath = code.mid(start, end - start).contains(QLatin1Char('.'));
    return start < end && !isPath && (hasDash(code, start, end) || isParameter(code, start, end));
}

QString commandBefore(const QString &code, int column)
{
    return callsAround(code, column, false).value(0);
}

QStringList commandsBefore(const QString &code, int column)
{
    return callsAround(code, column, true);
}
