// SPDX-License-Identifier: MIT
#include "mainwindow/flaginsertion.h"

#include "analysis/commandword.h"
#include "analysis/pythonkeywords.h"
#include "analysis/wordunits.h"
#include "bridge/commandhelp.h"
#include "editor/codearound.h"
#include "editor/edcodeedit.h"
#include "editor/editblock.h"
#include "editor/editorlanguage.h"
#include "mainwindow/pythonarguments.h"

#include <QTextCursor>

namespace {

struct Insertion
{
    int column = 0;
    int typed = 0; // the start of the flag, in front of the column, that makes room
    QString text;
    int caretBack = 0; // from the end of the text; below 0, behind it
};

QString lastWord(const QString &before)
{
    int start = int(before.size());
    while (start > 0 && isNameUnit(before.at(start - 1).unicode()))
        --start;
    return before.mid(start);
}

bool endsInOneOf(const QString &text, const char *characters)
{
    return text.isEmpty() || QString::fromLatin1(characters).contains(text.at(text.size() - 1));
}

// What parts the parameter from the text that it is put behind.
QString pythonSeparator(const QString &before, const QString &command)
{
    if (startsArgument(before))
        return QLatin1String(before.endsWith(QLatin1Char(',')) ? " " : "");
    return QLatin1String(lastWord(before) == command ? "(" : ", ");
}

// Out of the string or the comment that the caret is in; a comment outside the command stays.
int placeInCode(const CodeAround &code, const QString &command)
{
    int place = code.caret;
    while (code.isInString(place))
        ++place;
    int end = place;
    while (code.isInComment(place) && end > 0 && code.text.at(end - 1).isSpace())
        --end;
    return commandsBefore(code.text, end).contains(command) ? end : place;
}

// Never into a word; from the command into its parentheses.
int insertionColumn(const QString &code, int column, const QString &command, bool isPython)
{
    const int end = nameEnd(code, column);
    const bool isInWord = !lastWord(code.left(column)).isEmpty();
    if (!isInWord && code.mid(column, end - column) != command)
        return column;
    const bool isCalled =
        isPython && lastWord(code.left(end)) == command && code.mid(end, 1) == QLatin1String("(");
    return isCalled ? end + 1 : end;
}

// polySphere -rad|ius 1
//            |          before the flag that it is in, which may have a value; but a start of the
//                       wanted one makes room for that
int outOfFlag(const QString &code, int column, const QString &flag)
{
    const int start = column - int(lastWord(code.left(column)).size());
    const int end = nameEnd(code, column);
    if (column == end || !code.left(start).endsWith(QLatin1Char('-')))
        return column;
    return flag.startsWith(code.mid(start, end - start)) ? end : start - 1;
}

// polySphere -r 1;|
//                |     from behind the statement of the command into it
int melColumn(const QString &code, int column, const QString &command)
{
    bool isBehind = false;
    for (int end = column; end > 0 && endsInOneOf(code.left(end), " \t;`");) {
        --end;
        isBehind = isBehind || endsInOneOf(code.mid(end, 1), ";`");
        if (isBehind && commandsBefore(code, end).contains(command))
            return end;
    }
    return column;
}

Insertion melInsertion(const QString &code, int column, const QString &flag, const QString &command)
{
    Insertion insertion;
    insertion.column = melColumn(code, column, command);
    const QString before = code.left(insertion.column);
    const QString word = lastWord(before);
    const QString rest = before.left(before.size() - word.size());
    if (rest.endsWith(QLatin1Char('-')) && flag.startsWith(word))
        insertion.typed = int(word.size()) + 1;
    const bool isApart = endsInOneOf(before.left(before.size() - insertion.typed), " \t\n(`");
    insertion.text = QString::fromLatin1("%1-%2 ").arg(QLatin1String(isApart ? "" : " "), flag);
    return insertion;
}

// A name that is there, with its value, is changed and keeps the value.
Insertion pythonReplacement(const QString &code, int column, int typed, const QString &name)
{
    Insertion insertion;
    insertion.column = column;
    insertion.typed = typed;
    const QString after = code.mid(column, 2);
    const bool hasValue = after.startsWith(QLatin1Char('=')) && after != QLatin1String("==");
    insertion.text = hasValue ? name : name + QLatin1Char('=');
    insertion.caretBack = hasValue ? -1 : 0;
    return insertion;
}

Insertion pythonInsertion(const QString &code, int column, const CommandFlag &flag,
                          const QString &command)
{
    const bool isNoName = isPythonKeyword(flag.longName) && !flag.shortName.isEmpty();
    const QString name = isNoName || flag.longName.isEmpty() ? flag.shortName : flag.longName;
    const int outside = outOfBrackets(code, column, command);
    const QString word = lastWord(code.left(column));
    if (outside == column && !word.isEmpty() &&
        (name.startsWith(word) || flag.longName.startsWith(word)) &&
        startsArgument(code.left(column - word.size())))
        return pythonReplacement(code, column, int(word.size()), name);

    Insertion insertion;
    const int argumentsEnd = endOfArguments(code, column, command);
    insertion.column = keywordPlace(code, argumentsEnd >= 0 ? argumentsEnd : outside);
    insertion.text =
        pythonSeparator(code.left(insertion.column), command) + name + QLatin1Char('=');
    if (argumentFollows(code, insertion.column)) {
        const QString comma =
            QLatin1String(code.at(insertion.column).isSpace() ? "," : ", "); // it is apart already
        insertion.text += comma;
        insertion.caretBack = int(comma.size());
    }
    return insertion;
}

} // namespace

void insertFlag(EdCodeEdit *edit, const CommandFlag &flag, const QString &command)
{
    const bool isPython = edit->language() == PythonLanguage;
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(cursor.selectionEnd());
    const CodeAround code = codeAround(cursor, edit->language());
    const QString melName = flag.longName.isEmpty() ? flag.shortName : flag.longName;
    const int place = placeInCode(code, command);
    const int column = insertionColumn(
        code.text, isPython ? place : outOfFlag(code.text, place, melName), command, isPython);
    const Insertion insertion = isPython ? pythonInsertion(code.text, column, flag, command)
                                         : melInsertion(code.text, column, melName, command);
    const int end = code.start + insertion.column;
    {
        const EditBlock step(cursor); // or it would join what was typed before
        cursor.setPosition(end - insertion.typed);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        cursor.insertText(insertion.text);
    }
    cursor.setPosition(cursor.position() - insertion.caretBack);
    edit->setTextCursor(cursor);
}
