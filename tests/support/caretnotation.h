// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTextCursor>

// A text with its caret drawn as "|", as in "ab|c". With a selection its anchor is drawn as "[" and
// the caret as "]": "a[b]c" is selected forwards, "a]b[c" backwards. Brackets beside a "|" are
// text.

// Replaces the document's text by what is drawn, without the marks; the cursor as they say.
QTextCursor setDrawing(QTextDocument *document, const QString &drawing);
QString drawing(const QTextCursor &cursor);
