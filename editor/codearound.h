// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QTextCursor;

// The lines around a caret as far as they can belong to a call, for those who ask which one it is
// and where in it the caret stands. Strings and comments mean nothing there and are masked.
struct CodeAround
{
    // Whether the place in the text is behind a part of one, and in a string not at its end.
    bool isInComment(int place) const;
    bool isInString(int place) const;

    QString text;  // a unit for each of the document's; its lines end in line feeds
    int caret = 0; // in the text
    int start = 0; // of the text in the document
};

// Of Python the statement, of MEL the caret's line and those above, of plain text the caret's line
// as it is. No more than a hundred lines up or down.
CodeAround codeAround(const QTextCursor &caret, int language);
