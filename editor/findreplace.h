// SPDX-License-Identifier: MIT
#pragma once

#include "editor/findrequest.h"

#include <QStringList>

class QTextCursor;

struct FindOutcome
{
    QStringList messages;      // for the user, in this order
    bool selectsMatch = false; // the cursor does, newly found or replaced
};

// Carries the request out from the cursor's selection on. All edits are one step to undo. Where
// everything is replaced, a caret outside the matches stays on its characters.
FindOutcome findReplace(QTextCursor &cursor, const FindRequest &request);
// The same with QTextDocument::toPlainText() of the document as it is now, for callers that have it
// at hand: to fetch it takes longer than to search it.
FindOutcome findReplace(QTextCursor &cursor, const FindRequest &request, const QString &text);
// How many matches Replace All would replace in such a text.
int replaceableMatches(const FindRequest &request, const QString &text);
