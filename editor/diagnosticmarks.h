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
    // The characters that were marked, wherever they go.
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
    // when there are fewer now, is what it made of the number of lines.
    void shift(int position, int charsRemoved, int charsAdded, int addedLines);

    // Null when no mark lies there.
    const EdDiagnosticMark *at(int position) const;
    const std::vector<EdDiagnosticMark> &all() const { return m_marks; }
    // Message by line; of two on a line the later one in the list.
    const QMap<int, QString> &lines() const;

private:
    bool dropOrMove(EdDiagnosticMark &mark, int position, int limit, int delta) const;

    std::vector<EdDiagnosticMark> m_marks;
    mutable QMap<int, QString> m_lines; // made when asked for
    mutable bool m_linesAreOld = false;
};
