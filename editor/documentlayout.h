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

private slots:
    void noteEdit(int from, int charsRemoved, int charsAdded);

private:
    void oneBlockChanged(const QTextBlock &block, int from, int charsAdded);
    void keepGlyphs(const QTextBlock &block);

    int m_blockCount;         // as of the last change
    bool m_keepsLines = true; // the edit at hand breaks and joins no lines
    int m_editedLine = -1;    // 0-based, the last one that was changed by itself
};
