// SPDX-License-Identifier: MIT
#pragma once

#include <QTextCursor>

// Makes the edits of its life one step to undo. While it lasts, highlighters see none of them.
class EditBlock
{
public:
    enum Start { NewStep, JoinLastStep };

    // The cursor may be any of the document and must outlive the block.
    explicit EditBlock(QTextCursor &cursor, Start start = NewStep) : m_cursor(cursor)
    {
        if (start == JoinLastStep)
            m_cursor.joinPreviousEditBlock();
        else
            m_cursor.beginEditBlock();
    }
    ~EditBlock() { m_cursor.endEditBlock(); }

    EditBlock(const EditBlock &) = delete;
    EditBlock &operator=(const EditBlock &) = delete;

private:
    QTextCursor &m_cursor;
};
