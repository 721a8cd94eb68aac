// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

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
    // The same for a text that the document has been given by an edit, of which this is then a
    // part.
    void markByEdit(QTextDocument *document, const QString &text);
    // Whether some lines end, or ended, in another way than new ones.
    bool isMixed() const { return m_mixed; }
    // That of new lines.
    QString usual() const;
    // The document's text with these ends. Other characters are as they stand in the document.
    QString text(const QTextDocument &document) const;

private:
    void count(const QTextDocument &document, const QString &text);
    void markUnusual(QTextDocument *document, const QString &text) const;

    LineEnd m_usual; // of the first three
    bool m_mixed = false;
};

// What the text's lines are in a document.
QStringList linesOf(const QString &text);

// The line, counted from 1, of a character of the text.
int lineNumber(const QString &text, int position);
