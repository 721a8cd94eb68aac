// SPDX-License-Identifier: MIT
#include "editor/edhighlighter.h"

#include "bridge/melnametable.h"
#include "editor/edtextblockdata.h"
#include "editor/melscanner.h"
#include "editor/pythonscanner.h"
#include "preferences/preferences.h"

namespace {

bool isSuspended = false; // for all highlighters

// What the text widget draws marks for.
bool isBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

} // namespace

EdHighlighter::EdHighlighter(std::unique_ptr<LineScanner> scanner, QTextDocument *document)
    : QSyntaxHighlighter(document), m_scanner(std::move(scanner))
{
    readFormats();
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

void EdHighlighter::highlightBlock(const QString &text)
{
    if (isSuspended)
        return;
    m_scanner->scan(text, previousBlockState(), m_scan);
    // When this differs from before, Qt goes on with the next block.
    setCurrentBlockState(m_scan.state);
    keepBlockData();
    applyFormats();
    if (preferences().showTabsAndSpaces)
        dimWhiteSpace(text);
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
