// SPDX-License-Identifier: MIT
#include "editor/documentlayout.h"

#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

DocumentLayout::DocumentLayout(QTextDocument *document)
    : QPlainTextDocumentLayout(document), m_blockCount(document->blockCount())
{
    connect(document, SIGNAL(contentsChange(int, int, int)), SLOT(noteEdit(int, int, int)));
}

// Told before the layout is, and without what highlighting adds. As many blocks as before and no
// line break among what was added: then none was removed either.
void DocumentLayout::noteEdit(int from, int, int charsAdded)
{
    const QTextBlock block = document()->findBlock(from);
    m_keepsLines = document()->blockCount() == m_blockCount &&
                   from + charsAdded < block.position() + block.length();
}

// Qt takes the sum of both numbers for the length of what changed. Highlighting a block reports all
// of it as removed and added again, so that the next blocks seem to have changed too; and when
// several have, the whole page is painted.
void DocumentLayout::documentChanged(int from, int charsRemoved, int charsAdded)
{
    const QTextBlock block = document()->findBlock(from);
    const bool isOneBlock = m_keepsLines && block.contains(from + std::max(charsAdded, 1) - 1);
    m_keepsLines = true; // as highlighting by itself does
    m_blockCount = document()->blockCount();
    if (isOneBlock)
        oneBlockChanged(block, from, charsAdded);
    else
        QPlainTextDocumentLayout::documentChanged(from, charsRemoved, charsAdded);
}

void DocumentLayout::oneBlockChanged(const QTextBlock &block, int from, int charsAdded)
{
    keepGlyphs(block);
    const int rows = block.lineCount();
    // A sum of 0 would be that of a change which ends before it begins.
    const int charsRemoved = charsAdded > 0 ? 0 : 1;
    QPlainTextDocumentLayout::documentChanged(from, charsRemoved, charsAdded);
    if (block.lineCount() == rows)
        return;
    // Qt compares heights, but highlighting has taken the old one away.
    emit documentSizeChanged(documentSize());
    emit update();
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
