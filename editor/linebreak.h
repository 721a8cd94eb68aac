// SPDX-License-Identifier: MIT
#pragma once

#include "editor/indentstyle.h"

class QTextCursor;

// Breaks the line at the caret, replacing the selection, and indents the new one. One step to undo.
// Not inside an edit block: the highlighter must see the break before the indentation is known.
// The language is one of EditorLanguage.
void breakLine(QTextCursor &cursor, int language, const IndentStyle &style);
