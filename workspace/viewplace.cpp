// SPDX-License-Identifier: MIT
#include "workspace/viewplace.h"

#include "workspace/linechange.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace {

// The block that a line of before has become, or the last.
QTextBlock blockNow(int line, const QTextDocument &document, const LineChange &change)
{
    return document.findBlockByNumber(std::min(change.lineNow(line), document.blockCount() - 1));
}

} // namespace

ViewPlace::ViewPlace(const QPlainTextEdit &edit)
    : m_caret(spotAt(edit, edit.textCursor().position())),
      m_anchor(spotAt(edit, edit.textCursor().anchor())),
      m_horizontal(edit.horizontalScrollBar()->value())
{
    // The scroll bar counts rows, of which a wrapped line has several.
    const int row = edit.verticalScrollBar()->value();
    const QTextBlock top = edit.document()->findBlockByLineNumber(row);
    m_top = {top.blockNumber(), row - top.firstLineNumber()};
}

ViewPlace::Spot ViewPlace::spotAt(const QPlainTextEdit &edit, int position)
{
    const QTextBlock block = edit.document()->findBlock(position);
    return {block.blockNumber(), position - block.position()};
}

int ViewPlace::positionOf(const Spot &spot, const QPlainTextEdit &edit, const LineChange &change)
{
    const QTextBlock block = blockNow(spot.line, *edit.document(), change);
    return block.position() + std::min(spot.column, block.length() - 1);
}

void ViewPlace::restore(QPlainTextEdit *edit, const LineChange &change) const
{
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(positionOf(m_anchor, *edit, change));
    cursor.setPosition(positionOf(m_caret, *edit, change), QTextCursor::KeepAnchor);
    edit->setTextCursor(cursor); // which scrolls to the caret
    const QTextBlock top = blockNow(m_top.line, *edit->document(), change);
    edit->verticalScrollBar()->setValue(top.firstLineNumber() +
                                        std::min(m_top.column, top.lineCount() - 1));
    edit->horizontalScrollBar()->setValue(m_horizontal);
}
