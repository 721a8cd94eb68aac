// SPDX-License-Identifier: MIT
#include "editor/documentlayout.h"

#include <QTextBlock>
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
    QPlainTextDocumentLayout::documentChanged(from, isOneBlock ? 0 : charsRemoved, charsAdded);
}

// False, too, for a block that was never seen: it would have to be laid out now.
bool DocumentLayout::staysInBlock(int from, int charsAdded) const
{
    const QTextBlock block = document()->findBlock(from);
    return document()->blockCount() == m_blockCount && block.contains(from + charsAdded - 1) &&
           block.layout()->lineCount() > 0;
}
