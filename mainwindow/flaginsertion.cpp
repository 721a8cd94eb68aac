// SPDX-License-Identifier: MIT
#include "mainwindow/flaginsertion.h"

#include "analysis/wordunits.h"
#include "editor/edcodeedit.h"
#include "editor/editblock.h"
#include "editor/editorlanguage.h"

#include <QTextBlock>
#include <QTextCursor>

namespace {

struct Insertion
{
    int typed = 0; // the start of the flag, in front of the caret, that makes room
    QString text;
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

QString trimmedEnd(QString text)
{
    while (!text.isEmpty() && text.at(text.size() - 1).isSpace())
        text.chop(1);
    return text;
}

// What parts the parameter from the text that it is put behind.
QString pythonSeparator(const QString &before, const QString &command)
{
    const QString text = trimmedEnd(before);
    if (endsInOneOf(text, "(")) // or is empty: the call began on a line above
        return QString();
    if (text.endsWith(QLatin1Char(',')))
        return QLatin1String(text.size() == before.size() ? " " : "");
    return QLatin1String(lastWord(text) == command ? "(" : ", ");
}

int wordEnd(const QString &line, int column)
{
    while (column < line.size() && isNameUnit(line.at(column).unicode()))
        ++column;
    return column;
}

// Never into a word; from the command into its parentheses.
int insertionColumn(const QString &line, int column, const QString &command, bool isPython)
{
    const int end = wordEnd(line, column);
    const bool isInWord = !lastWord(line.left(column)).isEmpty();
    if (!isInWord && line.mid(column, end - column) != command)
        return column;
    const bool isCalled =
        isPython && lastWord(line.left(end)) == command && line.mid(end, 1) == QLatin1String("(");
    return isCalled ? end + 1 : end;
}

// Behind `before`, the line in front of the caret.
Insertion melInsertion(const QString &flag, const QString &before)
{
    Insertion insertion;
    const QString word = lastWord(before);
    const QString rest = before.left(before.size() - word.size());
    if (rest.endsWith(QLatin1Char('-')) && flag.startsWith(word))
        insertion.typed = int(word.size()) + 1;
    const bool isApart = endsInOneOf(before.left(before.size() - insertion.typed), " \t(`");
    insertion.text = QString::fromLatin1("%1-%2 ").arg(QLatin1String(isApart ? "" : " "), flag);
    return insertion;
}

Insertion pythonInsertion(const QString &flag, const QString &before, const QString &command)
{
    Insertion insertion;
    const QString word = lastWord(before);
    const QString rest = before.left(before.size() - word.size());
    if (flag.startsWith(word) && endsInOneOf(trimmedEnd(rest), "(,"))
        insertion.typed = int(word.size());
    const QString left = before.left(before.size() - insertion.typed);
    insertion.text = pythonSeparator(left, command) + flag + QLatin1Char('=');
    return insertion;
}

} // namespace

void insertFlag(EdCodeEdit *edit, const QString &flag, const QString &command)
{
    const bool isPython = edit->language() == PythonLanguage;
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(cursor.selectionEnd());
    const QTextBlock line = cursor.block();
    const int column = insertionColumn(line.text(), cursor.positionInBlock(), command, isPython);
    cursor.setPosition(line.position() + column);
    const QString name = flag.startsWith(QLatin1Char('-')) ? flag.mid(1) : flag;
    const QString before = line.text().left(column);
    const Insertion insertion =
        isPython ? pythonInsertion(name, before, command) : melInsertion(name, before);
    {
        const EditBlock step(cursor); // or it would join what was typed before
        cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, insertion.typed);
        cursor.insertText(insertion.text);
    }
    edit->setTextCursor(cursor);
}
