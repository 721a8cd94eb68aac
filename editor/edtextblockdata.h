// SPDX-License-Identifier: MIT
#pragma once

#include "editor/linescan.h"

#include <QString>
#include <QTextBlockUserData>

#include <vector>

class QTextBlock;

// What the highlighter knows of a block's text; owned by the block. As old as the last
// highlighting: inside an edit it may still tell of the text before.
class EdTextBlockData : public QTextBlockUserData
{
public:
    // The block's data; null for a block that was never highlighted, such as those of plain text.
    static EdTextBlockData *of(const QTextBlock &block);

    // What was found of the block's line. Exchanges what both hold, so that its room is kept. The
    // key stands for the line and all that it was found by; 0 for nothing.
    void take(LineScan &scan, quint64 key);
    // Whether it was taken under that key, and has not been changed since.
    bool isOf(quint64 key) const { return key != 0 && key == m_key; }
    int state() const { return m_state; } // in which the line ends

    // What lies outside strings and comments of the block, which is that of this data.
    QString codeText(const QTextBlock &block) const;
    // In the order of LineScan, which is not that of the columns.
    const std::vector<Bracket> &brackets() const { return m_brackets; }
    bool inComment() const { return m_inComment; } // begins inside a comment of several lines

    // The block is about to lose all from the column on, before which the code is that. It is of no
    // key any more.
    void trimTo(int column, const QString &code);

private:
    // Most lines are nothing but code; keeping that twice would double a document's memory.
    bool m_isAllCode = false;
    int m_state = 0;
    QString m_codeText; // empty while it is all code
    std::vector<Bracket> m_brackets;
    bool m_inComment = false;
    quint64 m_key = 0;
};
