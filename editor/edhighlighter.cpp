// SPDX-License-Identifier: MIT
#include "editor/edhighlighter.h"

#include "bridge/melnametable.h"
#include "editor/blockformats.h"
#include "editor/edtextblockdata.h"
#include "editor/longlines.h"
#include "editor/melscanner.h"
#include "editor/pythonscanner.h"
#include "preferences/preferences.h"

#include <QCoreApplication>
#include <QTextDocument>

#include <algorithm>
#include <cstring>

namespace {

bool isSuspended = false; // for all highlighters
quint64 passes = 0;       // through a document, of all highlighters

// Work is counted rather than timed, so that a slow machine colours as much of a page as a fast
// one. In characters; a turn's work takes about three milliseconds.
const int workOfTurn = 100000;
const int workOfBlock = 25;              // whatever its length
const int charactersComparedAtOnce = 16; // to find that a block is as it was, for the work of one

// Milliseconds, in which a page that just appears is laid out and painted.
const int paintDelay = 20;

// The first of so many that waits; invalid when none does.
QTextBlock waitingBlock(QTextBlock block, int count)
{
    for (; count > 0 && block.isValid(); --count, block = block.next()) {
        if (WaitingBlocks::contains(block))
            return block;
    }
    return QTextBlock();
}

// With both.
int workBetween(const QTextBlock &first, const QTextBlock &last)
{
    const int blocks = last.blockNumber() - first.blockNumber() + 1;
    return last.position() + last.length() - first.position() + blocks * workOfBlock;
}

quint64 mixed(quint64 hash, quint64 value)
{
    const quint64 product = (hash ^ value) * 0x9e3779b97f4a7c15; // odd, its bits without a pattern
    return product ^ (product >> 32);
}

// So many different ones that no two texts are taken for the same.
quint64 hashOf(const QString &text, quint64 start)
{
    const int step = int(sizeof(quint64) / sizeof(QChar));
    const QChar *end = text.constData() + text.size();
    const QChar *at = text.constData();
    quint64 hash = mixed(start, quint64(text.size()));
    for (; end - at >= step; at += step) {
        quint64 units = 0;
        std::memcpy(&units, at, sizeof units);
        hash = mixed(hash, units);
    }
    for (; at < end; ++at)
        hash = mixed(hash, at->unicode());
    return hash;
}

} // namespace

EdHighlighter::EdHighlighter(std::unique_ptr<LineScanner> scanner, QTextDocument *document)
    : QSyntaxHighlighter(document), m_scanner(std::move(scanner))
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
    if (!first.isValid())
        return;
    // Where text was removed, what follows may now stand behind another block.
    QTextBlock last = document()->findBlock(from + charsAdded + (charsRemoved > 0 ? 1 : 0));
    if (!last.isValid())
        last = document()->lastBlock();
    if (first != last || isSuspended)
        m_waiting.add(first, last);
    if (!isSuspended)
        highlightFrom(first);
}

void EdHighlighter::highlightAgain()
{
    m_pass = ++passes;
    m_waiting.add(document()->begin(), document()->lastBlock());
    if (!isSuspended)
        highlightSlice(workOfTurn);
}

void EdHighlighter::highlightVisible(const QTextBlock &first, int count)
{
    const QTextBlock seen = waitingBlock(first, count);
    if (!seen.isValid() || isSuspended)
        return;
    const int lastLine = std::min(first.blockNumber() + count, document()->blockCount()) - 1;
    const int work = workBetween(m_waiting.first(), document()->findBlockByNumber(lastLine));
    if (work <= workOfTurn)
        return highlightSlice(work);
    m_budget = workOfTurn;
    highlightFrom(seen);
}

void EdHighlighter::waitForTurn()
{
    m_budget = 0;
    // It gives a new budget, should there be no change at all.
    m_turn.start(paintDelay, this);
}

void EdHighlighter::finish()
{
    while (isPending() && !isSuspended)
        highlightSlice(workOfTurn);
}

void EdHighlighter::timerEvent(QTimerEvent *)
{
    m_turn.stop();
    if (!isSuspended)
        highlightSlice(workOfTurn);
}

void EdHighlighter::highlightSlice(int work)
{
    m_budget = work;
    QTextBlock block = m_waiting.first();
    while (block.isValid() && m_budget > 0) {
        highlightFrom(block);
        block = m_waiting.first();
    }
    m_budget = workOfTurn; // for the edits until the next turn
}

// And on, as long as blocks end in another state than before, or waited.
void EdHighlighter::highlightFrom(const QTextBlock &first)
{
    if (!m_turn.isActive())
        m_turn.start(0, this);
    QTextBlock block = first;
    bool isDirty = false;
    bool goesOn = true;
    for (; goesOn && block.isValid() && m_budget > 0; block = block.next()) {
        const int oldState = block.userState();
        isDirty |= highlight(block);
        goesOn = block.userState() != oldState;
    }
    if (goesOn && block.isValid())
        m_waiting.add(block, block);
    const int end = block.isValid() ? block.position() : document()->characterCount();
    // Once for all, since it has the page painted.
    if (isDirty)
        document()->markContentsDirty(first.position(), end - first.position());
}

// True when its formats are others now. A change of some lines far apart, and undoing it, is told
// as one of all between them, most of which are what they were.
bool EdHighlighter::highlight(QTextBlock block)
{
    const QString text = block.text();
    const EdTextBlockData *data = EdTextBlockData::of(block);
    m_budget -= workOfBlock + int(text.size()) / charactersComparedAtOnce;
    const quint64 key = keyOf(block, text);
    if (data && data->isOf(key)) {
        block.setUserState(data->state());
        return false;
    }
    m_budget -= int(text.size());
    examine(block, text, key);
    return setBlockFormats(block, formats(text));
}

// Of what its formats and data depend on. None while an input method composes, which moves formats.
quint64 EdHighlighter::keyOf(const QTextBlock &block, const QString &text) const
{
    if (!block.layout()->preeditAreaText().isEmpty())
        return 0;
    return hashOf(text, mixed(m_pass, quint64(block.previous().userState())));
}

// For QSyntaxHighlighter's own functions, which do all at once.
void EdHighlighter::highlightBlock(const QString &text)
{
    compat::FormatRanges ranges;
    if (isSuspended) {
        ranges = compat::layoutFormats(currentBlock()); // Qt takes away what is not set anew
    } else {
        examine(currentBlock(), text, keyOf(currentBlock(), text));
        ranges = formats(text);
    }
    for (const QTextLayout::FormatRange &range : ranges)
        setFormat(range.start, range.length, range.format);
}

// Sets the block's state and data. The data is filled anew rather than replaced: blocks are
// highlighted again and again.
void EdHighlighter::examine(QTextBlock block, const QString &text, quint64 key)
{
    m_scanner->scan(text, block.previous().userState(), m_scan);
    block.setUserState(m_scan.state);
    EdTextBlockData *data = EdTextBlockData::of(block);
    if (!data) {
        data = new EdTextBlockData;
        block.setUserData(data); // which the block owns from now on
    }
    data->take(m_scan, key);
}

// Of the text that was examined last.
compat::FormatRanges EdHighlighter::formats(const QString &text) const
{
    compat::FormatRanges ranges;
    if (text.size() > longLine)
        return ranges;
    ranges.reserve(int(m_scan.spans.size())); // each block keeps its own
    for (const FormatSpan &span : m_scan.spans)
        ranges << formatRange(span.start, span.length, m_formats[size_t(span.category)]);
    if (preferences().showTabsAndSpaces) {
        const QTextCharFormat &marks = m_formats[size_t(EditorText::HiddenWhitespace)];
        ranges = withDimmedBlanks(ranges, text, marks.foreground());
    }
    return ranges;
}

EdHighlighterMel::EdHighlighterMel(QTextDocument *document)
    : EdHighlighter(std::make_unique<MelScanner>(melNameTable()), document)
{
}

EdHighlighterPython::EdHighlighterPython(QTextDocument *document)
    : EdHighlighter(std::make_unique<PythonScanner>(melNameTable()), document)
{
}
