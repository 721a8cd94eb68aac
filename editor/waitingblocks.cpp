// SPDX-License-Identifier: MIT
#include "editor/waitingblocks.h"

void WaitingBlocks::add(const QTextBlock &first, const QTextBlock &last)
{
    const QTextBlock end = last.next();
    for (QTextBlock block = first; block != end; block = block.next())
        block.setUserState(-1);
    if (m_first.isNull() || first.position() < m_first.position())
        m_first = QTextCursor(first);
    if (m_last.isNull() || last.position() > m_last.position())
        m_last = QTextCursor(last);
}

QTextBlock WaitingBlocks::first()
{
    QTextBlock block = m_first.block();
    while (block.isValid() && block.position() <= m_last.position() && !contains(block))
        block = block.next();
    if (block.isValid() && block.position() <= m_last.position()) {
        m_first = QTextCursor(block);
        return block;
    }
    m_first = m_last = QTextCursor();
    return QTextBlock();
}
