// SPDX-License-Identifier: MIT
// The mouse, the clipboard and what is dragged over an editor.
#include "editor/edcodeedit.h"

#include "analysis/wordunits.h"
#include "editor/edcompleter.h"
#include "editor/editorlanguage.h"
#include "preferences/preferences.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDropEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextBlock>
#include <QUrl>

#include <algorithm>

namespace {

const char fileList[] = "text/uri-list";

bool isName(const QString &text)
{
    const auto belongs = [](QChar character) { return isNameUnit(character.unicode()); };
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), belongs);
}

// Deliberate: without the letters from B to Y, so that only one of these before a "$" keeps it
// out of the selection.
bool bindsDollar(QChar character)
{
    return isNameUnit(character.unicode()) &&
           !(character > QLatin1Char('A') && character < QLatin1Char('Z'));
}

// Where the word of any script that begins there ends.
int wordEnd(const QString &line, int start)
{
    int end = start;
    while (end < line.size() && isWordUnit(line.constData(), int(line.size()), end))
        ++end;
    return end;
}

// Columns of a line.
struct Range
{
    int start;
    int end;
};

// What a double click should take of the line, given what Qt takes: the "$" and the name of a
// variable together.
Range withDollar(const QString &line, Range word)
{
    const QString text = line.mid(word.start, word.end - word.start);
    if (text == QLatin1String("$")) {
        const int end = wordEnd(line, word.end);
        if (isName(line.mid(word.end, end - word.end)))
            word.end = end;
    } else if (isName(text) && word.start > 0 && line.at(word.start - 1) == QLatin1Char('$') &&
               (word.start == 1 || !bindsDollar(line.at(word.start - 2)))) {
        --word.start;
    }
    return word;
}

} // namespace

// The marks are made once for the selection that comes out of it.
void EdCodeEdit::mouseDoubleClickEvent(QMouseEvent *event)
{
    m_extraSelectionsEnabled = false;
    QPlainTextEdit::mouseDoubleClickEvent(event);
    if (m_language == MelLanguage && preferences().melSelectFullVariableName)
        widenToVariable();
    m_extraSelectionsEnabled = true;
    updateExtraSelections();
}

void EdCodeEdit::widenToVariable()
{
    QTextCursor cursor = textCursor();
    const QTextBlock block = document()->findBlock(cursor.selectionStart());
    const int base = block.position();
    const Range taken = {cursor.selectionStart() - base, cursor.selectionEnd() - base};
    const Range wanted = withDollar(block.text(), taken);
    if (wanted.start == taken.start && wanted.end == taken.end)
        return;
    cursor.setPosition(base + wanted.start);
    cursor.setPosition(base + wanted.end, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void EdCodeEdit::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton)
        m_middlePress = event->pos();
    QPlainTextEdit::mousePressEvent(event);
}

// A click of the middle button, which pastes on some systems, is seldom without a little movement.
void EdCodeEdit::mouseMoveEvent(QMouseEvent *event)
{
    m_completer->hide();
    if (!(event->buttons() & Qt::MiddleButton) || !textCursor().hasSelection())
        QPlainTextEdit::mouseMoveEvent(event);
    else if ((event->pos() - m_middlePress).manhattanLength() >= QApplication::startDragDistance())
        dragSelection();
}

// As Maya's own Script Editor does it: what is dragged onto a shelf becomes a button there.
void EdCodeEdit::dragSelection()
{
    QDrag *drag = new QDrag(this); // which deletes itself
    drag->setMimeData(createMimeDataFromSelection());
    drag->exec(Qt::CopyAction);
}

// Not exec(): a script may close the document while the menu is open.
void EdCodeEdit::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool edits = !isReadOnly();
    const bool selected = textCursor().hasSelection();
    const QTextDocument &text = *document();
    menu->addAction(tr("Undo"), this, SLOT(undo()))->setEnabled(edits && text.isUndoAvailable());
    menu->addAction(tr("Redo"), this, SLOT(redo()))->setEnabled(edits && text.isRedoAvailable());
    menu->addSeparator();
    menu->addAction(tr("Cut"), this, SLOT(cut()))->setEnabled(edits && selected);
    menu->addAction(tr("Copy"), this, SLOT(copy()))->setEnabled(selected);
    menu->addAction(tr("Paste"), this, SLOT(paste()))->setEnabled(canPaste());
    menu->addAction(tr("Select All"), this, SLOT(selectAll()));
    menu->addSeparator();
    menu->addAction(tr("Quick Help"), this, SLOT(quickHelp()));
    menu->addAction(tr("Command documentation"), this, SLOT(commandDocumentation()));
    menu->addSeparator();
    menu->addAction(tr("Move to Other View"), this, SLOT(moveToOtherView()));
    menu->popup(event->globalPos());
}

void EdCodeEdit::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasFormat(QLatin1String(fileList)))
        event->acceptProposedAction();
    else
        QPlainTextEdit::dragEnterEvent(event);
}

void EdCodeEdit::dragMoveEvent(QDragMoveEvent *event)
{
    if (event->mimeData()->hasFormat(QLatin1String(fileList)))
        event->acceptProposedAction();
    else
        QPlainTextEdit::dragMoveEvent(event);
}

void EdCodeEdit::dropEvent(QDropEvent *event)
{
    if (!event->mimeData()->hasFormat(QLatin1String(fileList))) {
        QPlainTextEdit::dropEvent(event);
        return;
    }
    // Were it a move, the other program might delete the file.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const QList<QUrl> urls = event->mimeData()->urls();
    for (const QUrl &url : urls) {
        const QFileInfo info(url.toLocalFile());
        if (info.isFile())
            emit fileDropped(info.absoluteFilePath());
    }
}

QMimeData *EdCodeEdit::createMimeDataFromSelection() const
{
    QString text = textCursor().selectedText();
    QMimeData *copied = new QMimeData; // whoever asked owns it
    copied->setText(text.replace(QChar::ParagraphSeparator, QLatin1Char('\n')));
    return copied;
}

void EdCodeEdit::insertFromMimeData(const QMimeData *source)
{
    if (source->hasText() && !isReadOnly())
        insertPlainText(source->text());
    ensureCursorVisible();
}
