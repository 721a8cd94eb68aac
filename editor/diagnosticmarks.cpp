// SPDX-License-Identifier: MIT
#include "editor/diagnosticmarks.h"

#include "analysis/diagnosticlist.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <cstddef>

namespace {

// Marks of a list. Each edit moves, and tells of, every cursor behind it: with a thousand of them,
// replacing all of a large text takes seconds.
const int mostFollowed = 100;

// The cursor over the mark's characters: what is inserted before or behind them stays outside.
QTextCursor cursorOver(int start, int end, QTextDocument *document)
{
    QTextCursor cursor(document);
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.setKeepPositionOnInsert(true);
    return cursor;
}

// What is left of a mark of which the change from `position` to `limit` covers an end or both. It
// may gather several edits, as when lines are indented, and then spans what lies between them.
// False when nothing is left.
bool follow(EdDiagnosticMark &mark, int position, int limit, int delta)
{
    if (!mark.characters.isNull()) {
        mark.start = mark.characters.anchor();
        mark.end = mark.characters.position();
    } else {
        mark.start = std::min(mark.start, position);
        mark.end = mark.end > limit ? mark.end + delta : position;
    }
    return mark.end > mark.start;
}

enum class Fate { Kept, Followed, Dropped };

// Followed: the line has to be looked up again.
Fate shifted(EdDiagnosticMark &mark, int position, int limit, int delta)
{
    const bool removes = limit > position;
    if (mark.start >= limit && !(removes && mark.end == limit)) {
        mark.start += delta;
        mark.end += delta;
        return Fate::Kept;
    }
    if (mark.end <= position)
        return Fate::Kept;
    if (mark.start < position && mark.end > limit) {
        mark.end += delta;
        return Fate::Kept;
    }
    return follow(mark, position, limit, delta) ? Fate::Followed : Fate::Dropped;
}

} // namespace

void DiagnosticMarks::set(const DiagnosticList &diagnostics, QTextDocument *document)
{
    clear();
    m_document = document;
    const int last = document->characterCount() - 1;
    for (int i = 0; i < diagnostics.count(); ++i) {
        const int end = diagnostics.ends.at(i) < 0 ? last : std::min(diagnostics.ends.at(i), last);
        const int start = std::min(diagnostics.starts.at(i), end);
        m_marks.push_back({start, end, document->findBlock(start).blockNumber(),
                           diagnostics.messages.at(i),
                           i < mostFollowed ? cursorOver(start, end, document) : QTextCursor()});
    }
}

void DiagnosticMarks::clear()
{
    m_marks.clear();
    m_linesAreOld = true;
}

bool DiagnosticMarks::shift(int position, int charsRemoved, int charsAdded, int addedLines)
{
    const int delta = charsAdded - charsRemoved;
    const int limit = position + charsRemoved;
    bool changesLines = addedLines != 0;
    size_t kept = 0;
    for (EdDiagnosticMark &mark : m_marks) {
        // All lines that came or went are above a mark behind the change.
        if (mark.start >= limit)
            mark.line += addedLines;
        const Fate fate = shifted(mark, position, limit, delta);
        if (fate == Fate::Dropped)
            continue;
        if (fate == Fate::Followed)
            changesLines |= updateLine(mark);
        if (&mark != &m_marks[kept])
            m_marks[kept] = std::move(mark);
        ++kept;
    }
    changesLines |= kept < m_marks.size();
    m_marks.erase(m_marks.begin() + std::ptrdiff_t(kept), m_marks.end());
    m_linesAreOld |= changesLines;
    return changesLines;
}

// True when it is another line now.
bool DiagnosticMarks::updateLine(EdDiagnosticMark &mark) const
{
    const int old = mark.line;
    mark.line = m_document->findBlock(mark.start).blockNumber();
    return mark.line != old;
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

std::vector<int> DiagnosticMarks::linesBetween(int first, int last) const
{
    std::vector<int> lines;
    for (const EdDiagnosticMark &mark : m_marks) {
        if (mark.line >= first && mark.line <= last)
            lines.push_back(mark.line);
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}
