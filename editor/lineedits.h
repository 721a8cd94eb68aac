// SPDX-License-Identifier: MIT
#pragma once

#include "editor/indentstyle.h"

class QTextCursor;

// Edits of lines by the caret and selection of a cursor. Each is one step to undo, none when it
// changes nothing, and leaves caret and anchor on the characters where they were, as far as these
// are still there.

// Indents the lines of a selection of several; otherwise goes to the next tab stop, replacing the
// selection.
void increaseIndent(QTextCursor &cursor, const IndentStyle &style);
// Unindents the lines of a selection of several, or the line of the caret.
void decreaseIndent(QTextCursor &cursor, const IndentStyle &style);
// Puts a copy of the selection behind it, or a copy of the line below it.
void duplicateText(QTextCursor &cursor);
void deleteLines(QTextCursor &cursor);
// Fills all tabs of the document up to their tab stops.
void convertTabsToSpaces(QTextCursor &cursor, const IndentStyle &style);

// Where Home takes the caret inside its line: before the first character that is no white space, or
// to the start when it is there already.
int homePosition(const QTextCursor &cursor);
