// SPDX-License-Identifier: MIT
#pragma once

#include "compat/layoutformats.h"
#include "editor/linescan.h"
#include "editor/waitingblocks.h"

#include <QBasicTimer>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

#include <memory>
#include <vector>

class LineScanner;

// Colours a document as its language's scanner says, and keeps in each block what is code. Knows no
// language itself. Belongs to the editor, which replaces it when the language changes.
//
// Nobody waits for it: in one turn of the event loop it highlights no more than takes a few
// milliseconds, beginning with what has been edited. The rest waits for the turns to come, and ends
// up as if all had been done at once.
class EdHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    ~EdHighlighter() override;

    // Takes the formats of the preferences; the caller highlights again.
    void readFormats();

    // All blocks, of which a first slice at once. QSyntaxHighlighter::rehighlight() waits for all.
    void highlightAgain();

    // Lets blocks that are seen not wait: with those above them where these are no more than a
    // turn's work, else without. What the latter leave open is not known then, so the colours may
    // change once more.
    void highlightVisible(const QTextBlock &first, int count);

    // Leaves what changes before the next turn to that, but for what highlightVisible() is asked.
    void waitForTurn();

    // Whether some blocks still wait.
    bool isPending() const { return !m_waiting.isEmpty(); }

    // Does at once what is left.
    void finish();

    // While it is on, no highlighter of the process looks at a block: colours and block data stay
    // as they are until the next highlighting.
    static void setSuspended(bool suspended);

protected:
    // The document becomes the parent too, as QSyntaxHighlighter has it; whoever owns the
    // highlighter deletes it before the document.
    EdHighlighter(std::unique_ptr<LineScanner> scanner, QTextDocument *document);

    void highlightBlock(const QString &text) override;
    void timerEvent(QTimerEvent *event) override;

private slots:
    void noteChange(int from, int charsRemoved, int charsAdded);

private:
    using QSyntaxHighlighter::setDocument; // it stays with its document
    void takeOver(QTextDocument *document);
    void highlightSlice(int work);
    void highlightFrom(const QTextBlock &first);
    bool highlight(QTextBlock block);
    quint64 keyOf(const QTextBlock &block, const QString &text) const;
    void examine(QTextBlock block, const QString &text, quint64 key);
    compat::FormatRanges formats(const QString &text) const;

    WaitingBlocks m_waiting;
    quint64 m_pass = 0; // its last through all blocks; no other highlighter has the same
    int m_budget = 0;   // what may still be done in this turn
    QBasicTimer m_turn; // runs out when the event loop comes round
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
