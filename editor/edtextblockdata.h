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

    std::vector<Bracket> brackets; // in the order of LineScan, which is not that of the columns
    QString codeText;              // what lies outside strings and comments
    bool inComment = false;        // begins inside a comment of several lines
};
