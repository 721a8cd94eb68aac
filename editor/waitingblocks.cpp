// SPDX-License-Identifier: MIT
#include "editor/waitingblocks.h"

#include <QTextDocument>

namespace {

QTextCursor range(int start, int end, const QTextBlock &inDocumentOf)
{
    QTextCursor cursor(inDocumentOf);
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    return cursor;
}

} // namespace

void WaitingBlocks::add(const QTextBlock &first, const QTextBlock &last)
{
    int start = first.position();
    int end = last.position();
    for (QTextBlock block = first; block != last.next(); block = block.next())
        block.setUserState(-1);
    if (!isEmpty()) {
        start = qMin(start, m_range.selectionStart());
        end = qMax(end, m_range.selectionEnd());
    }
    m_range = range(start, end, first);
}

QTextBlock WaitingBlocks::first()
{
    if (isEmpty())
        return QTextBlock();
    const int end = m_range.selectionEnd();
    QTextBlock block = m_range.document()->findBlock(m_range.selectionStart());
    while (block.isValid() && block.position() <= end && !contains(block))
        block = block.next();
    if (!block.isValid() || block.position() > end) {
        m_range = QTextCursor();
        return QTextBlock();
    }
    m_range = range(block.position(), end, block);
    return block;
}
