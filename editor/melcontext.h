// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

class QTextCursor;

// What a caret in a MEL script stands in, by the block data and not far around it.
struct MelContext
{
    enum Kind {
        Nothing,  // a string, a comment, a number, or a line that is too long to be looked at
        Name,     // of a command, a procedure, a keyword
        Variable, // "$" and what follows
        Flag      // "-" and what follows, in the call of a command
    };

    Kind kind = Nothing;
    QString prefix;  // what was typed of it, the sign included
    QString command; // that the flag is for
};

MelContext melContextAt(const QTextCursor &caret);

// The variables that the script mentions before the caret in the same procedure, or, outside of
// all, not in one; with their "$", each once, in any order. No more than some thousand lines are
// looked at.
QStringList melVariablesBefore(const QTextCursor &caret);
