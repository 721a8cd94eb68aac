// SPDX-License-Identifier: MIT
#pragma once

#include "editor/linescan.h"

#include <QString>
#include <QTextBlockUserData>

#include <vector>

class QTextBlock;

// What the highlighter knows of a block's text; owned by the block.
class EdTextBlockData : public QTextBlockUserData
{
public:
    // The block's data; null for a block that was never highlighted.
    static EdTextBlockData *of(const QTextBlock &block);

    std::vector<Bracket> brackets;
    QString codeText;       // what lies outside strings and comments
    bool inComment = false; // begins inside a comment of several lines
};
