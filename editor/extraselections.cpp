// SPDX-License-Identifier: MIT
#include "editor/extraselections.h"

#include "analysis/wordunits.h"
#include "editor/diagnosticmarks.h"
#include "editor/findrequest.h"
#include "editor/longlines.h"
#include "editor/textblocks.h"
#include "editor/textsearch.h"
#include "preferences/textformats.h"

#include <QTextBlock>
#include <QTextCursor>

namespace {

// How far away a partner is looked for. Beside a bracket without one this is done at every key.
const int linesOfMatch = 10000;

// Painting a line looks at every one.
const int mostMatches = 1000;

bool isWordAt(const QString &text, int index)
{
    return isWordUnit(text.constData(), int(text.size()), index);
}

// A name, or a variable of MEL: $name.
bool isWord(const QString &text)
{
    const int start = text.startsWith(QLatin1Char('$')) ? 1 : 0;
    for (int i = start; i < text.size(); ++i) {
        if (!isWordAt(text, i))
            return false;
    }
    return text.size() > start;
}

bool standsAlone(const QString &line, int start, int length)
{
    const int end = start + length;
    return (start == 0 || !isWordAt(line, start - 1)) &&
           (end == line.size() || !isWordAt(line, end));
}

QTextCursor cursorOver(const QTextBlock &block, int start, int length)
{
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + start);
    cursor.setPosition(block.position() + start + length, QTextCursor::KeepAnchor);
    return cursor;
}

QTextEdit::ExtraSelection selectionOver(const QTextCursor &cursor, const QTextCharFormat &format)
{
    QTextEdit::ExtraSelection selection;
    selection.cursor = cursor;
    selection.format = format;
    return selection;
}

void addWord(const QString &word, const QTextBlock &block, const QTextCharFormat &format,
             ExtraSelections *selections)
{
    const QString line = block.text();
    const int length = int(word.size());
    for (int at = int(line.indexOf(word)); at >= 0; at = int(line.indexOf(word, at + length))) {
        if (standsAlone(line, at, length))
            *selections << selectionOver(cursorOver(block, at, length), format);
    }
}

void addUnderlines(const DiagnosticMarks &marks, OutputText category, int firstLine, int lastLine,
                   ExtraSelections *selections)
{
    if (marks.isEmpty())
        return;
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    format.setUnderlineColor(textFormat(category).foreground);
    for (const QTextCursor &characters : marks.charactersBetween(firstLine, lastLine)) {
        if (!isLong(characters.document()->findBlock(characters.anchor())))
            *selections << selectionOver(characters, format);
    }
}

} // namespace

void addCurrentLine(const QTextCursor &caret, ExtraSelections *selections)
{
    QTextCharFormat format;
    const QColor ground = textFormat(EditorText::CurrentLine).background;
    if (ground.isValid()) // set all the same it would be black
        format.setBackground(ground);
    format.setProperty(QTextFormat::FullWidthSelection, true);
    QTextCursor line = caret;
    line.clearSelection();
    *selections << selectionOver(line, format);
}

void addMatchedSelections(const QTextCursor &caret, const QTextBlock &first, const QTextBlock &last,
                          ExtraSelections *selections)
{
    const QTextBlock line = caret.document()->findBlock(caret.selectionStart());
    if (!caret.hasSelection() || isLong(line) || !line.contains(caret.selectionEnd()))
        return;
    const QString word = caret.selectedText();
    const int start = caret.selectionStart() - line.position();
    if (!isWord(word) || !standsAlone(line.text(), start, int(word.size())))
        return;
    const QTextCharFormat format = textFormat(EditorText::MatchingSelection).charFormat();
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        if (!isLong(block))
            addWord(word, block, format, selections);
        if (block == last)
            break;
    }
}

void addMatches(const FindRequest &search, const QTextBlock &first, const QTextBlock &last,
                ExtraSelections *selections)
{
    if (search.findText.isEmpty())
        return;
    const TextSearch matches(search);
    const QTextCharFormat format = textFormat(EditorText::MatchingSelection).charFormat();
    const int most = int(selections->size()) + mostMatches;
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        const QString line = isLong(block) ? QString() : searchable(block.text());
        for (int start : matches.matchesBetween(line, 0, int(line.size()))) {
            if (selections->size() == most)
                return;
            *selections << selectionOver(cursorOver(block, start, matches.length()), format);
        }
        if (block == last)
            break;
    }
}

void addMatchingBrackets(const QTextCursor &caret, ExtraSelections *selections)
{
    const QTextBlock line = caret.block();
    const int column = caret.positionInBlock() - 1;
    if (caret.hasSelection() || column < 0 || isLong(line))
        return;
    const TextPlace match = matchingBracket({line, column}, linesOfMatch);
    if (!match.isValid())
        return;
    const QTextCharFormat format = textFormat(EditorText::BraceMatching).charFormat();
    *selections << selectionOver(cursorOver(line, column, 1), format)
                << selectionOver(cursorOver(match.block, match.column, 1), format);
}

void addErrorUnderlines(const DiagnosticMarks &errors, const DiagnosticMarks &warnings,
                        const DiagnosticMarks &notes, int firstLine, int lastLine,
                        ExtraSelections *selections)
{
    addUnderlines(notes, OutputText::Results, firstLine, lastLine, selections);
    addUnderlines(warnings, OutputText::Warnings, firstLine, lastLine, selections);
    addUnderlines(errors, OutputText::Errors, firstLine, lastLine, selections);
}
