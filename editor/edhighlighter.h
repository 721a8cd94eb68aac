// SPDX-License-Identifier: MIT
#pragma once

#include "editor/linescan.h"

#include <QSyntaxHighlighter>
#include <QTextCharFormat>

#include <memory>
#include <vector>

class LineScanner;

// Colours a document as its language's scanner says, and keeps in each block what is code. Knows no
// language itself. Belongs to the code view, which replaces it when the language changes.
class EdHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    ~EdHighlighter() override;

    // Takes the formats of the preferences; the caller highlights again.
    void readFormats();

    // While it is on, no highlighter of the process looks at a block: colours and block data stay
    // as they are until the next highlighting.
    static void setSuspended(bool suspended);

protected:
    // The document becomes the parent too, as QSyntaxHighlighter has it; whoever owns the
    // highlighter deletes it before the document.
    EdHighlighter(std::unique_ptr<LineScanner> scanner, QTextDocument *document);

    // One block, when its text or the state of the block above has changed.
    void highlightBlock(const QString &text) override;

private:
    void keepBlockData();
    void applyFormats();
    void dimWhiteSpace(const QString &text);

    std::unique_ptr<LineScanner> m_scanner;
    LineScan m_scan;                        // of the block at hand; a member for its room
    std::vector<QTextCharFormat> m_formats; // by category, made once: highlighting needs them often
};

// With the names that the host knows as commands.
class EdHighlighterMel : public EdHighlighter
{
    Q_OBJECT

public:
    explicit EdHighlighterMel(QTextDocument *document);
};

// The same names have a colour where they are functions of the module "cmds".
class EdHighlighterPython : public EdHighlighter
{
    Q_OBJECT

public:
    explicit EdHighlighterPython(QTextDocument *document);
};
