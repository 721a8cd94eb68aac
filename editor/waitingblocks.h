// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBlock>
#include <QTextCursor>

// The blocks of a document that still have to be highlighted, wherever edits move them. A block
// waits while its state is that of one never highlighted.
class WaitingBlocks
{
public:
    static bool contains(const QTextBlock &block) { return block.userState() == -1; }

    bool isEmpty() const { return m_range.isNull(); }

    // Both included. Their block data stays, though it may be as old as their colours.
    void add(const QTextBlock &first, const QTextBlock &last);

    // The uppermost; invalid when none waits any more. Takes time for each block passed over, but
    // passes no block twice.
    QTextBlock first();

private:
    // From the uppermost to the lowest; between them may be some that do not wait. One range is
    // enough: to look at a block is cheap beside highlighting it.
    QTextCursor m_range;
};
