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

    bool isEmpty() const { return m_first.isNull(); }

    // Both included. Their block data stays, though it may be as old as their colours.
    void add(const QTextBlock &first, const QTextBlock &last);

    // The uppermost; invalid when none waits any more. Takes time for each block passed over, but
    // passes no block twice.
    QTextBlock first();

private:
    // Null when none waits. Between the two may be some that do not: one range is enough, since to
    // look at a block is cheap beside highlighting it.
    QTextCursor m_first;
    QTextCursor m_last;
};
