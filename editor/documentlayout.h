// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextDocumentLayout>
#include <QTextBlock>

// The layout of an editor's document, which owns it. Paints a line again, and not the whole page,
// when only a line was edited and highlighted.
class DocumentLayout : public QPlainTextDocumentLayout
{
    Q_OBJECT

public:
    explicit DocumentLayout(QTextDocument *document);

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
    bool staysInBlock(int from, int charsAdded) const;

    void keepGlyphs(const QTextBlock &block);

    int m_blockCount;      // as of the last change
    int m_editedLine = -1; // 0-based, the last one that was changed by itself
};
