// SPDX-License-Identifier: MIT
#include "editor/diagnosticmarks.h"

#include "analysis/diagnosticlist.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <cstddef>

namespace {

// The cursor over the mark's characters: what is inserted before or behind them stays outside.
QTextCursor cursorOver(int start, int end, QTextDocument *document)
{
    QTextCursor cursor(document);
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.setKeepPositionOnInsert(true);
    return cursor;
}

// Whether none of the mark's characters was taken away and nothing was put between them.
bool isWhole(const EdDiagnosticMark &mark)
{
    return mark.end > mark.start &&
           mark.characters.position() - mark.characters.anchor() == mark.end - mark.start;
}

} // namespace

void DiagnosticMarks::set(const DiagnosticList &diagnostics, QTextDocument *document)
{
    clear();
    const int last = document->characterCount() - 1;
    for (int i = 0; i < diagnostics.count(); ++i) {
        const int end = diagnostics.ends.at(i) < 0 ? last : std::min(diagnostics.ends.at(i), last);
        const int start = std::min(diagnostics.starts.at(i), end);
        m_marks.push_back({start, end, document->findBlock(start).blockNumber(),
                           diagnostics.messages.at(i), cursorOver(start, end, document)});
    }
}

void DiagnosticMarks::clear()
{
    m_marks.clear();
    m_linesAreOld = true;
}

void DiagnosticMarks::shift(int position, int charsRemoved, int charsAdded, int addedLines)
{
    const int delta = charsAdded - charsRemoved;
    const int limit = position + charsRemoved;
    size_t kept = 0;
    for (EdDiagnosticMark &mark : m_marks) {
        // All lines that came or went are above a mark behind the change.
        if (mark.start >= limit)
            mark.line += addedLines;
        if (dropOrMove(mark, position, limit, delta))
            continue;
        if (&mark != &m_marks[kept])
            m_marks[kept] = std::move(mark);
        ++kept;
    }
    m_linesAreOld = m_linesAreOld || addedLines != 0 || kept < m_marks.size();
    m_marks.erase(m_marks.begin() + std::ptrdiff_t(kept), m_marks.end());
}

// True when the mark is to be dropped. A change may gather several edits, as when lines are
// indented, and then spans what lies between them: characters that are all still there keep their
// mark.
bool DiagnosticMarks::dropOrMove(EdDiagnosticMark &mark, int position, int limit, int delta) const
{
    const bool startsInside = mark.start >= position && mark.start < limit;
    if (startsInside && isWhole(mark)) {
        mark.start = mark.characters.anchor();
        mark.end = mark.characters.position();
        const int line = mark.characters.document()->findBlock(mark.start).blockNumber();
        m_linesAreOld = m_linesAreOld || line != mark.line;
        mark.line = line;
        return false;
    }
    const bool endsBehind = mark.end > limit;
    if (!endsBehind && limit > position && mark.end > position && mark.start >= position)
        return true;
    // An empty mark at the change's end goes with its start, not by its end.
    if (endsBehind || mark.start >= limit)
        mark.end += delta;
    if (mark.start >= limit)
        mark.start += delta;
    return false;
}

const EdDiagnosticMark *DiagnosticMarks::at(int position) const
{
    for (const EdDiagnosticMark &mark : m_marks) {
        if (mark.start <= position && mark.end > position)
            return &mark;
    }
    return nullptr;
}

const QMap<int, QString> &DiagnosticMarks::lines() const
{
    if (m_linesAreOld) {
        m_lines.clear();
        for (const EdDiagnosticMark &mark : m_marks)
            m_lines.insert(mark.line, mark.message);
        m_linesAreOld = false;
    }
    return m_lines;
}
