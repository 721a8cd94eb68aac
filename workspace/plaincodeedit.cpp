// SPDX-License-Identifier: MIT
#include "workspace/plaincodeedit.h"

#include "compat/text.h"
#include "preferences/preferences.h"
#include "preferences/textformats.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextOption>
#include <QUrl>

namespace {

// The local file that is dragged over or dropped on the editor; empty for anything else.
QString draggedFile(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    const QString path = urls.isEmpty() ? QString() : urls.first().toLocalFile();
    return QFileInfo(path).isFile() ? path : QString();
}

bool isReturn(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

// With tab stops every four columns, by the columns that are there so far:
//
// a[tab]bc[tab]d
// a   bc  d
QString withoutTabs(const QString &line, int tabSize)
{
    QString filled;
    for (QChar character : line) {
        if (character == QLatin1Char('\t'))
            filled += QString(tabSize - filled.length() % tabSize, QLatin1Char(' '));
        else
            filled += character;
    }
    return filled;
}

} // namespace

PlainCodeEdit::PlainCodeEdit(QWidget *parent) : QPlainTextEdit(parent)
{
    applyFontAndColors();
}

// Blocks keep the characters that toPlainText() replaces.
QString PlainCodeEdit::text() const
{
    QString joined = document()->begin().text();
    for (QTextBlock block = document()->begin().next(); block.isValid(); block = block.next())
        joined += QLatin1Char('\n') + block.text();
    return joined;
}

void PlainCodeEdit::applyFontAndColors()
{
    setFont(editorFont());
    setPalette(
        withTextColors(palette(), textFormat(EditorText::Plain), textFormat(EditorText::Selected)));
    applyTextOption();
}

void PlainCodeEdit::applyTextOption()
{
    QTextOption option = document()->defaultTextOption();
    QTextOption::Flags flags;
    if (preferences().showTabsAndSpaces)
        flags |= QTextOption::ShowTabsAndSpaces;
    if (preferences().showEndOfLine)
        flags |= QTextOption::ShowLineAndParagraphSeparators;
    option.setFlags(flags);
    const int blank = compat::textWidth(QFontMetrics(editorFont()), QLatin1String(" "));
    compat::setTabStop(option, preferences().tabSize * blank);
    document()->setDefaultTextOption(option);
    setLineWrapMode(preferences().wordWrapEnabled ? WidgetWidth : NoWrap);
}

void PlainCodeEdit::convertTabsToSpaces()
{
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (!block.text().contains(QLatin1Char('\t')))
            continue; // an edit that changes nothing would still be one to undo
        const QString filled = withoutTabs(block.text(), preferences().tabSize);
        cursor.setPosition(block.position());
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.insertText(filled);
    }
    cursor.endEditBlock();
}

// In this order: the keypad's Enter becomes Ctrl and Enter, which is then left to the window.
void PlainCodeEdit::keyPressEvent(QKeyEvent *event)
{
    const bool taken = keypadEnterExecutes(event) || leaveReturnToWindow(event) ||
                       tabInsertsSpaces(event) || toggleOverwrite(event);
    if (!taken)
        QPlainTextEdit::keyPressEvent(event);
}

// The window's shortcuts for executing are Ctrl and Return; no version may break the line for them.
bool PlainCodeEdit::leaveReturnToWindow(QKeyEvent *event)
{
    const bool leave =
        isReturn(*event) &&
        (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (leave)
        event->ignore();
    return leave;
}

// Pressed again as the window's shortcut, and so comes back through keyPressEvent().
bool PlainCodeEdit::keypadEnterExecutes(QKeyEvent *event)
{
    const bool plainKeypadEnter = event->key() == Qt::Key_Enter &&
                                  event->modifiers() == Qt::KeyboardModifiers(Qt::KeypadModifier);
    if (!plainKeypadEnter || !preferences().numpadEnterExecutes)
        return false;
    QKeyEvent execute(QEvent::KeyPress, Qt::Key_Enter, Qt::ControlModifier);
    QApplication::sendEvent(this, &execute);
    return true;
}

bool PlainCodeEdit::tabInsertsSpaces(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Tab || event->modifiers() != Qt::NoModifier ||
        !preferences().insertSpaces)
        return false;
    const int tabSize = preferences().tabSize;
    // In units: a tab before the caret counts as one column.
    const int column = textCursor().positionInBlock();
    insertPlainText(QString(tabSize - column % tabSize, QLatin1Char(' ')));
    return true;
}

bool PlainCodeEdit::toggleOverwrite(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Insert || event->modifiers() != Qt::NoModifier)
        return false;
    setOverwriteMode(!overwriteMode());
    emit overwriteModeChanged();
    return true;
}

// A dragged file is taken as well, or dropEvent() would never hear of it.
bool PlainCodeEdit::canInsertFromMimeData(const QMimeData *source) const
{
    return !draggedFile(source).isEmpty() || QPlainTextEdit::canInsertFromMimeData(source);
}

void PlainCodeEdit::dropEvent(QDropEvent *event)
{
    const QString path = draggedFile(event->mimeData());
    if (path.isEmpty()) {
        QPlainTextEdit::dropEvent(event);
        return;
    }
    event->acceptProposedAction();
    emit fileDropped(path);
}
