// SPDX-License-Identifier: MIT
#pragma once

#include "editor/indentstyle.h"

#include <QChar>

class QTextBlock;
class QTextCursor;

// How MEL is indented, by the block data of the lines above.

// What belongs into a line that a line break has just begun.
struct MelNewLine
{
    QString indentation;
    QString closing; // what goes behind the caret: a line break and "}", or nothing
};

MelNewLine melNewLine(const QTextBlock &line, const IndentStyle &style);

// Lets a typed "{" or "}" replace the selection and puts it where it belongs in the line, as one
// step to undo. False, with nothing done, where the brace is typed like any other character.
bool typeMelBrace(QTextCursor &cursor, QChar brace, const IndentStyle &style);
