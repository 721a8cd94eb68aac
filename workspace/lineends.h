// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QTextDocument;

// Whatever divides lines in a QTextDocument: it takes the last three as well, which are ordinary
// characters in a file.
enum class LineEnd {
    LineFeed,
    CarriageReturnLineFeed,
    CarriageReturn,
    ParagraphSeparator,
    FirstNoncharacter,
    SecondNoncharacter
};

// How the lines of a document end in its file. The document itself has only lines; one that comes
// from a file with several kinds has the unusual ones marked, and its marks follow all editing,
// undo included, as the separators do that they are on. So this costs an edit nothing.
class LineEnds
{
public:
    LineEnds();

    // The ends of a text that the document has just been given. New lines will have the commonest
    // of the usual three.
    void mark(QTextDocument *document, const QString &text);
    // The document's text with these ends. Other characters are as they stand in the document.
    QString text(const QTextDocument &document) const;

private:
    LineEnd m_usual; // of the first three
    bool m_mixed = false;
};

// The line, counted from 1, of a character of the text.
int lineNumber(const QString &text, int position);
