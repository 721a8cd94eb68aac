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

    bool isEmpty() const { return m_marks.empty(); }
    // Null when no mark lies there.
    const EdDiagnosticMark *at(int position) const;
    const std::vector<EdDiagnosticMark> &all() const;
    // Message by line; of two on a line the later one in the list. To look at a few lines of many
    // marks, the next one is quicker.
    const QMap<int, QString> &lines() const;
    // Those with a mark from `first` to `last`, both included, in ascending order.
    std::vector<int> linesBetween(int first, int last) const;
    // The characters of the marks that begin on these lines, where there are any. As long as no
    // mark comes to another line, and the same lines are asked for, this looks at no mark.
    const std::vector<QTextCursor> &charactersBetween(int first, int last) const;

private:
    // A part of the text in which no mark begins or ends. What is edited inside moves all marks
    // behind it; this is done when somebody asks for marks, not at every key.
    struct QuietPart
    {
        int start = 0;
        int end = 0;
        int delta = 0; // how far the marks behind are to be moved
        int addedLines = 0;
    };

    struct Shown
    {
        bool isOld = true;
        int first = 0;
        int last = 0;
        std::vector<QTextCursor> characters;
    };

    bool shiftEach(int position, int charsRemoved, int charsAdded, int addedLines);
    bool updateLine(EdDiagnosticMark &mark) const;
    QuietPart quietAround(int position) const;
    void settle() const;

    QTextDocument *m_document = nullptr; // that of the marks

    mutable std::vector<EdDiagnosticMark> m_marks; // as of the last settle()
    mutable QuietPart m_quiet;
    mutable Shown m_shown;              // made when asked for
    mutable QMap<int, QString> m_lines; // made when asked for
    mutable bool m_linesAreOld = false;
};
