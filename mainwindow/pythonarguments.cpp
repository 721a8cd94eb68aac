// SPDX-License-Identifier: MIT
#include "mainwindow/pythonarguments.h"

#include "analysis/commandword.h"
#include "analysis/wordunits.h"

namespace {

bool isOneOf(QChar c, const char *characters)
{
    return QString::fromLatin1(characters).contains(c);
}

int bracketStep(QChar c)
{
    return isOneOf(c, "([{") ? 1 : isOneOf(c, ")]}") ? -1 : 0;
}

// Behind the innermost bracket that is open at the column; 0 where none is.
int bracketStart(const QString &code, int column)
{
    int depth = 0;
    while (column > 0 && depth <= 0)
        depth += bracketStep(code.at(--column));
    return depth > 0 ? column + 1 : 0;
}

bool isLambda(const QString &code, int place)
{
    const QLatin1String word("lambda");
    const auto isName = [&code](int at) {
        return at >= 0 && at < code.size() && isNameUnit(code.at(at).unicode());
    };
    return code.mid(place, 6) == word && !isName(place - 1) && !isName(place + 6);
}

// Those outside of brackets whose colons are yet to come: a comma then parts no arguments.
//   f(lambda a, b: a)
//             |
class OpenLambdas
{
public:
    // The unit there, at a depth counted with it.
    void pass(const QString &code, int place, int depth)
    {
        if (depth == 0 && isLambda(code, place))
            ++m_count;
        else if (depth == 0 && m_count > 0 && code.at(place) == QLatin1Char(':'))
            --m_count;
    }

    int count() const { return m_count; }

private:
    int m_count = 0;
};

OpenLambdas lambdasAt(const QString &code, int column)
{
    OpenLambdas lambdas;
    int depth = 0;
    for (int i = bracketStart(code, column); i < column; ++i) {
        depth += bracketStep(code.at(i));
        lambdas.pass(code, i, depth);
    }
    return lambdas;
}

// The end of the argument that the column is in, or begins, with those that are open there.
int argumentEnd(const QString &code, int column, OpenLambdas lambdas)
{
    int depth = 0;
    int end = column;
    for (; end < code.size(); ++end) {
        const QChar c = code.at(end);
        const bool parts = c != QLatin1Char(',') || lambdas.count() == 0;
        if (depth == 0 && parts && isOneOf(c, ",)]};"))
            break;
        depth += bracketStep(c);
        lambdas.pass(code, end, depth);
    }
    return end;
}

// name = value
bool isNamed(const QString &code, int column)
{
    const int end = spaceEnd(code, nameEnd(code, column));
    return code.mid(end, 1) == QLatin1String("=") && code.mid(end, 2) != QLatin1String("==");
}

// The start of the argument without a name that is the next one; -1 when it has one or is none.
int nextPositional(const QString &code, int column)
{
    int start = spaceEnd(code, column);
    if (start < code.size() && code.at(start) == QLatin1Char(','))
        start = spaceEnd(code, start + 1);
    const bool isPositional =
        argumentFollows(code, start) && code.at(start) != QLatin1Char('*') && !isNamed(code, start);
    return isPositional ? start : -1;
}

// Where the text before the end ends without the blanks there.
int trimmedSize(const QString &text, int end)
{
    while (end > 0 && text.at(end - 1).isSpace())
        --end;
    return end;
}

bool isCallOf(const QString &function, const QString &code, int parenthesis)
{
    const QString before = code.left(trimmedSize(code, parenthesis));
    return commandWordAt(before, int(before.size())) == function;
}

} // namespace

int outOfBrackets(const QString &code, int column, const QString &function)
{
    int outermost = column;
    int closed = 0;
    for (int i = column - 1; i >= 0; --i) {
        const QChar c = code.at(i);
        if (isOneOf(c, ")]}"))
            ++closed;
        if (!isOneOf(c, "([{") || closed-- > 0)
            continue;
        if (c == QLatin1Char('(') && isCallOf(function, code, i))
            return outermost;
        outermost = i;
        closed = 0;
    }
    return column;
}

bool startsArgument(const QString &before)
{
    const int size = trimmedSize(before, int(before.size()));
    return size == 0 ||
           (isOneOf(before.at(size - 1), "(,") && lambdasAt(before, size).count() == 0);
}

bool argumentFollows(const QString &code, int column)
{
    const int start = spaceEnd(code, column);
    return start < code.size() && !isOneOf(code.at(start), ",)]};:");
}

int keywordPlace(const QString &code, int column)
{
    int place = column;
    if (!startsArgument(code.left(column)))
        place = trimmedSize(code, argumentEnd(code, column, lambdasAt(code, column)));
    for (int next = nextPositional(code, place); next >= 0; next = nextPositional(code, place))
        place = trimmedSize(code, argumentEnd(code, next, OpenLambdas()));
    return place;
}

int endOfArguments(const QString &code, int column, const QString &function)
{
    int closing = column - 1;
    while (closing >= 0 && (code.at(closing).isSpace() || code.at(closing) == QLatin1Char(';')))
        --closing;
    if (closing < 0 || code.at(closing) != QLatin1Char(')'))
        return -1;
    int open = closing;
    for (int depth = 1; depth > 0 && --open >= 0;)
        depth += code.at(open) == QLatin1Char(')') ? 1 : code.at(open) == QLatin1Char('(') ? -1 : 0;
    return open >= 0 && isCallOf(function, code, open) ? trimmedSize(code, closing) : -1;
}
