// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>
#include <QTextCursor>

#include <vector>

struct DiagnosticList;
class QTextDocument;

// A diagnostic at its place in a document. Positions are 0-based UTF-16 units, the end exclusive.
struct EdDiagnosticMark
{
    int start;
    int end;
    int line; // 0-based, of the start
    QString message;
    // Follows the characters through every single edit; null for marks beyond the first
    // hundred of a list, since each costs every edit of the document a little.
    QTextCursor characters;
};

// The marks of one category (errors, warnings or notes), in the parser's order. They move with the
// text and are dropped with it.
class DiagnosticMarks
{
public:
    // Of a text that is the document's now. An end of -1 is that of the text.
    void set(const DiagnosticList &diagnostics, QTextDocument *document);
    void clear();

    // A change of the document as QTextDocument::contentsChange() tells it. `addedLines`, negative
    // when there are fewer now, is what it made of the number of lines. True when other lines have
    // marks now.
    bool shift(int position, int charsRemoved, int charsAdded, int addedLines);

    // Null when no mark lies there.
    const EdDiagnosticMark *at(int position) const;
    const std::vector<EdDiagnosticMark> &all() const { return m_marks; }
    // Null before they are set.
    QTextDocument *document() const { return m_document; }
    // Message by line; of two on a line the later one in the list. To look at a few lines of many
    // marks, the next one is quicker.
    const QMap<int, QString> &lines() const;
    // Those with a mark from `first` to `last`, both included, in ascending order.
    std::vector<int> linesBetween(int first, int last) const;

private:
    bool updateLine(EdDiagnosticMark &mark) const;

    QTextDocument *m_document = nullptr; // that of the marks

    std::vector<EdDiagnosticMark> m_marks;
    mutable QMap<int, QString> m_lines; // made when asked for
    mutable bool m_linesAreOld = false;
};
