// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QTextEdit>

class DiagnosticMarks;
class QTextBlock;
class QTextCursor;
struct FindRequest;

// What an editor marks beside its selection. Each function adds one kind to a list, of which later
// entries are painted over earlier ones. The time that takes does not grow with the document, but
// for that of underlines, which grows a little with the number of marks.
typedef QList<QTextEdit::ExtraSelection> ExtraSelections;

// The caret's line over the whole width.
void addCurrentLine(const QTextCursor &caret, ExtraSelections *selections);
// Whole words equal to the selected one in the blocks from `first` to `last`; nothing when the
// selection is not a word.
void addMatchedSelections(const QTextCursor &caret, const QTextBlock &first, const QTextBlock &last,
                          ExtraSelections *selections);
// The matches of a search in these blocks; beyond the first thousand, which no view shows, none.
void addMatches(const FindRequest &search, const QTextBlock &first, const QTextBlock &last,
                ExtraSelections *selections);
// The bracket before the caret and its partner; nothing when it has none within some thousand lines
// or something is selected.
void addMatchingBrackets(const QTextCursor &caret, ExtraSelections *selections);
// Wavy lines under the marks whose line is one of those, 0-based, both ends included.
void addErrorUnderlines(const DiagnosticMarks &errors, const DiagnosticMarks &warnings,
                        const DiagnosticMarks &notes, int firstLine, int lastLine,
                        ExtraSelections *selections);
