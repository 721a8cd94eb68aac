// SPDX-License-Identifier: MIT
#include "editor/edhighlighter.h"

#include "bridge/melnametable.h"
#include "compat/layoutformats.h"
#include "editor/edtextblockdata.h"
#include "editor/longlines.h"
#include "editor/melscanner.h"
#include "editor/pythonscanner.h"
#include "preferences/preferences.h"

#include <QCoreApplication>
#include <QTextDocument>

namespace {

bool isSuspended = false; // for all highlighters

// Work is counted rather than timed, so that a slow machine colours as much of a page as a fast
// one. In characters; a turn's work takes about three milliseconds.
const int workOfTurn = 100000;
const int workOfBlock = 25; // whatever its length

// What the text widget draws marks for.
bool isBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

} // namespace

EdHighlighter::EdHighlighter(std::unique_ptr<LineScanner> scanner, QTextDocument *document)
    : QSyntaxHighlighter(document), m_budget(workOfTurn), m_scanner(std::move(scanner))
{
    readFormats();
    takeOver(document);
}

EdHighlighter::~EdHighlighter() = default;

void EdHighlighter::setSuspended(bool suspended)
{
    isSuspended = suspended;
}

void EdHighlighter::readFormats()
{
    m_formats.clear();
    for (int category = 0; category < editorTextCount; ++category)
        m_formats.push_back(textFormat(static_cast<EditorText>(category)).charFormat());
}

// QSyntaxHighlighter would highlight all of a change, and on attaching all of the document, before
// anything else can happen.
void EdHighlighter::takeOver(QTextDocument *document)
{
    disconnect(document, SIGNAL(contentsChange(int, int, int)), this, nullptr);
    connect(document, SIGNAL(contentsChange(int, int, int)), SLOT(noteChange(int, int, int)));
    QCoreApplication::removePostedEvents(this, QEvent::MetaCall); // it has sent itself a call
    highlightAgain();
}

void EdHighlighter::noteChange(int from, int charsRemoved, int charsAdded)
{
    const QTextBlock first = document()->findBlock(from);
    // Where text was removed, what follows may now stand behind another block.
    QTextBlock last = document()->findBlock(from + charsAdded + (charsRemoved > 0 ? 1 : 0));
    if (!last.isValid())
        last = document()->lastBlock();
    if (first != last || isSuspended)
        m_waiting.add(first, last);
    highlightFrom(first);
}

void EdHighlighter::highlightAgain()
{
    m_waiting.add(document()->begin(), document()->lastBlock());
    if (!isSuspended)
        highlightSlice();
}

void EdHighlighter::highlightVisible(const QTextBlock &first, int count)
{
    QTextBlock block = first;
    for (int i = 0; i < count && block.isValid(); ++i, block = block.next()) {
        if (!WaitingBlocks::contains(block))
            continue;
        m_budget = workOfTurn;
        highlightFrom(block);
        return;
    }
}

void EdHighlighter::finish()
{
    while (isPending() && !isSuspended)
        highlightSlice();
}

void EdHighlighter::timerEvent(QTimerEvent *)
{
    m_turn.stop();
    if (!isSuspended)
        highlightSlice();
}

void EdHighlighter::highlightSlice()
{
    m_budget = workOfTurn;
    QTextBlock block = m_waiting.first();
    while (block.isValid() && m_budget > 0) {
        highlightFrom(block);
        block = m_waiting.first();
    }
    m_budget = workOfTurn; // for the edits until the next turn
}

// And on, as long as blocks end in another state than before, or waited.
void EdHighlighter::highlightFrom(const QTextBlock &block)
{
    if (isSuspended)
        return;
    m_left = QTextBlock();
    m_isBounded = true;
    rehighlightBlock(block);
    m_isBounded = false;
    if (m_left.isValid())
        m_waiting.add(m_left, m_left);
    m_turn.start(0, this);
}

void EdHighlighter::highlightBlock(const QString &text)
{
    const bool isLeft = m_isBounded && m_budget <= 0;
    if (isLeft)
        m_left = currentBlock();
    if (isLeft || isSuspended) {
        keepFormats();
        return;
    }
    m_budget -= workOfBlock + int(text.size());
    m_scanner->scan(text, previousBlockState(), m_scan);
    // When this differs from before, Qt goes on with the next block.
    setCurrentBlockState(m_scan.state);
    keepBlockData();
    if (text.size() > longLine)
        return;
    applyFormats();
    if (preferences().showTabsAndSpaces)
        dimWhiteSpace(text);
}

// Qt takes away what is not set anew.
void EdHighlighter::keepFormats()
{
    for (const QTextLayout::FormatRange &range : compat::layoutFormats(currentBlock()))
        setFormat(range.start, range.length, range.format);
}

// The block's data is filled anew rather than replaced: blocks are highlighted again and again.
void EdHighlighter::keepBlockData()
{
    auto *data = static_cast<EdTextBlockData *>(currentBlockUserData());
    if (!data) {
        data = new EdTextBlockData;
        setCurrentBlockUserData(data); // which the block owns from now on
    }
    data->take(m_scan);
}

void EdHighlighter::applyFormats()
{
    for (const FormatSpan &span : m_scan.spans)
        setFormat(span.start, span.length, m_formats[size_t(span.category)]);
}

// The marks that stand for white space take their colour from it and the rest from what they lie
// in.
void EdHighlighter::dimWhiteSpace(const QString &text)
{
    // Last of all: it takes up the formats that are there.
    const QBrush brush = m_formats[size_t(EditorText::HiddenWhitespace)].foreground();
    for (int i = 0; i < text.size(); ++i) {
        if (!isBlank(text[i]))
            continue;
        QTextCharFormat dimmed = format(i);
        dimmed.setForeground(brush);
        setFormat(i, 1, dimmed);
    }
}

EdHighlighterMel::EdHighlighterMel(QTextDocument *document)
    : EdHighlighter(std::make_unique<MelScanner>(melNameTable()), document)
{
}

EdHighlighterPython::EdHighlighterPython(QTextDocument *document)
    : EdHighlighter(std::make_unique<PythonScanner>(melNameTable()), document)
{
}
