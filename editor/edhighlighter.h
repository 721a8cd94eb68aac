// SPDX-License-Identifier: MIT
#pragma once

#include "editor/linescan.h"

#include <QSyntaxHighlighter>
#include <QTextCharFormat>

#include <memory>
#include <vector>

class LineScanner;

// Colours a document as its language's scanner says, and keeps in each block what is code.
class EdHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    ~EdHighlighter() override;

    // Takes the formats of the preferences; the caller highlights again.
    void readFormats();

    // While it is on, no highlighter of the process looks at a block.
    static void setSuspended(bool suspended);

protected:
    EdHighlighter(std::unique_ptr<LineScanner> scanner, QTextDocument *document);

    void highlightBlock(const QString &text) override;

private:
    void keepBlockData();
    void applyFormats();
    void dimWhiteSpace(const QString &text);

    std::unique_ptr<LineScanner> m_scanner;
    LineScan m_scan;
    std::vector<QTextCharFormat> m_formats; // by category
};

class EdHighlighterMel : public EdHighlighter
{
    Q_OBJECT

public:
    explicit EdHighlighterMel(QTextDocument *document);
};

class EdHighlighterPython : public EdHighlighter
{
    Q_OBJECT

public:
    explicit EdHighlighterPython(QTextDocument *document);
};
