// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QTextDocument;

// Lines of a document, 0-based, in whose place others have come.
struct LineChange
{
    int first = 0;
    int removed = 0;
    int added = 0;

    // Where a line of before is now. One that is gone gives the line in its place, even where there
    // are fewer lines than that.
    int lineNow(int line) const { return line < first + removed ? line : line + added - removed; }
};

// Gives the document this text by one edit, which can be undone, to the lines that differ. Those
// before and behind it keep what goes with their blocks, and cursors in them their place.
LineChange changeLines(QTextDocument *document, const QString &text);
// The same by as few lines as can be found, so that those between them are left alone as well.
void changeLinesClosely(QTextDocument *document, const QString &text);
