// SPDX-License-Identifier: MIT
#include "editor/pythonbindings.h"

#include "analysis/pythonkeywords.h"
#include "editor/pythoncaret.h"
#include "editor/pythonobject.h"

namespace {

// Longer ones are not looked through: a loop's names, a lambda's arguments.
const int longestList = 400;

// for a, (b, c) in
//    |         |
QStringList loopNames(const QString &code, int start)
{
    const QString list = code.mid(start, longestList);
    QStringList names;
    for (int i = 0; i < list.size(); ++i) {
        const int nameStart = i;
        while (i < list.size() && isPythonName(list.at(i)))
            ++i;
        const QString name = list.mid(nameStart, i - nameStart);
        if (name == QLatin1String("in"))
            return names;
        if (!name.isEmpty())
            names << name;
        if (list.mid(i, 1) == QLatin1String(".") || list.mid(i, 1) == QLatin1String("["))
            break; // binds no name
    }
    return QStringList();
}

// lambda a, b=f(c):
//       |         |
QStringList lambdaNames(const QString &code, int start)
{
    const QStringList parts = codeParts(code.mid(start, longestList), QLatin1Char(':'));
    return parts.size() > 1 ? argumentNames(parts[0]) : QStringList();
}

int skipSpace(const QString &code, int position)
{
    while (position < code.size() && code.at(position).isSpace())
        ++position;
    return position;
}

QString nameAt(const QString &code, int start)
{
    int end = start;
    while (end < code.size() && isPythonName(code.at(end)))
        ++end;
    return code.mid(start, end - start);
}

// By the word that stands at `start`.
QStringList boundBy(const QString &word, const QString &code, int start)
{
    const int end = start + int(word.size());
    if (word == QLatin1String("for"))
        return loopNames(code, end);
    if (word == QLatin1String("lambda"))
        return lambdaNames(code, end);
    if (word == QLatin1String("as"))
        return QStringList() << nameAt(code, skipSpace(code, end));
    const int sign = skipSpace(code, end);
    return code.mid(sign, 2) == QLatin1String(":=") ? QStringList() << word : QStringList();
}

} // namespace

QStringList pythonBindings(const QString &code)
{
    QStringList names;
    for (int i = 0; i < code.size(); ++i) {
        const QString word = nameAt(code, i);
        if (!word.isEmpty())
            names << boundBy(word, code, i);
        i += int(word.size());
    }
    QStringList bound;
    for (const QString &name : names) {
        const bool isName = !name.isEmpty() && !name.at(0).isDigit() && !isPythonKeyword(name);
        if (isName && !bound.contains(name))
            bound << name;
    }
    return bound;
}
