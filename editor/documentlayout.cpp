// SPDX-License-Identifier: MIT
#include "editor/documentlayout.h"

#include <QTextDocument>
#include <QTextLayout>

DocumentLayout::DocumentLayout(QTextDocument *document)
    : QPlainTextDocumentLayout(document), m_blockCount(document->blockCount())
{
}

// Qt takes the sum of both numbers for the length of what changed. Highlighting a block reports all
// of it as removed and added again, so that the next blocks seem to have changed too; and when
// several have, the whole page is painted.
void DocumentLayout::documentChanged(int from, int charsRemoved, int charsAdded)
{
    const bool isOneBlock = staysInBlock(from, charsAdded);
    m_blockCount = document()->blockCount();
    if (isOneBlock)
        keepGlyphs(document()->findBlock(from));
    QPlainTextDocumentLayout::documentChanged(from, isOneBlock ? 0 : charsRemoved, charsAdded);
}

// Without them each step of a key, from placing the caret to painting it, shapes the line anew.
// Only one block has them, for they take more memory than its text.
void DocumentLayout::keepGlyphs(const QTextBlock &block)
{
    // By its number, for the block itself may be gone. Should lines have been added above it, it
    // keeps what it has.
    const QTextBlock former = document()->findBlockByNumber(m_editedLine);
    if (former.isValid() && former != block)
        former.layout()->setCacheEnabled(false);
    block.layout()->setCacheEnabled(true);
    m_editedLine = block.blockNumber();
}

bool DocumentLayout::staysInBlock(int from, int charsAdded) const
{
    return document()->blockCount() == m_blockCount &&
           document()->findBlock(from).contains(from + charsAdded - 1);
}
