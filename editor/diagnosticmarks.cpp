// SPDX-License-Identifier: MIT
#include "editor/diagnosticmarks.h"

#include "analysis/diagnosticlist.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace {

// Marks of a list. Each edit moves, and tells of, every cursor behind it: with a thousand of them,
// replacing all of a large text takes seconds.
const int mostFollowed = 100;

// Far enough to be moved there and back.
const int behindAnyText = std::numeric_limits<int>::max() / 2;

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
    m_quiet = QuietPart();
    m_shown = Shown();
    m_linesAreOld = true;
}

bool DiagnosticMarks::shift(int position, int charsRemoved, int charsAdded, int addedLines)
{
    bool changesLines = addedLines != 0;
    if (position > m_quiet.start && position + charsRemoved < m_quiet.end) {
        m_quiet.end += charsAdded - charsRemoved;
        m_quiet.delta += charsAdded - charsRemoved;
        m_quiet.addedLines += addedLines;
    } else {
        changesLines |= shiftEach(position, charsRemoved, charsAdded, addedLines);
        m_quiet = quietAround(position + charsAdded);
    }
    m_linesAreOld |= changesLines;
    m_shown.isOld |= changesLines;
    return changesLines;
}

bool DiagnosticMarks::shiftEach(int position, int charsRemoved, int charsAdded, int addedLines)
{
    settle();
    const int delta = charsAdded - charsRemoved;
    const int limit = position + charsRemoved;
    bool changesLines = false;
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
    return changesLines;
}

// As large as it can be; nothing is inside when a mark begins or ends right there.
DiagnosticMarks::QuietPart DiagnosticMarks::quietAround(int position) const
{
    QuietPart quiet;
    quiet.start = -1;
    quiet.end = behindAnyText;
    for (const EdDiagnosticMark &mark : m_marks) {
        for (int edge : {mark.start, mark.end}) {
            if (edge <= position)
                quiet.start = std::max(quiet.start, edge);
            if (edge >= position)
                quiet.end = std::min(quiet.end, edge);
        }
    }
    return quiet;
}

void DiagnosticMarks::settle() const
{
    if (m_quiet.delta == 0 && m_quiet.addedLines == 0)
        return;
    const int end = m_quiet.end - m_quiet.delta; // where the marks still have it
    for (EdDiagnosticMark &mark : m_marks) {
        if (mark.start >= end) {
            mark.start += m_quiet.delta;
            mark.line += m_quiet.addedLines;
        }
        if (mark.end >= end)
            mark.end += m_quiet.delta;
    }
    m_quiet.delta = 0;
    m_quiet.addedLines = 0;
}

const std::vector<EdDiagnosticMark> &DiagnosticMarks::all() const
{
    settle();
    return m_marks;
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
    for (const EdDiagnosticMark &mark : all()) {
        if (mark.start <= position && mark.end > position)
            return &mark;
    }
    return nullptr;
}

const QMap<int, QString> &DiagnosticMarks::lines() const
{
    if (m_linesAreOld) {
        m_lines.clear();
        for (const EdDiagnosticMark &mark : all())
            m_lines.insert(mark.line, mark.message);
        m_linesAreOld = false;
    }
    return m_lines;
}

std::vector<int> DiagnosticMarks::linesBetween(int first, int last) const
{
    std::vector<int> lines;
    for (const EdDiagnosticMark &mark : all()) {
        if (mark.line >= first && mark.line <= last)
            lines.push_back(mark.line);
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

const std::vector<QTextCursor> &DiagnosticMarks::charactersBetween(int first, int last) const
{
    if (!m_shown.isOld && m_shown.first == first && m_shown.last == last)
        return m_shown.characters;
    m_shown = {false, first, last, std::vector<QTextCursor>()};
    for (const EdDiagnosticMark &mark : all()) {
        if (mark.line < first || mark.line > last || mark.start == mark.end)
            continue;
        m_shown.characters.push_back(mark.characters.isNull()
                                         ? cursorOver(mark.start, mark.end, m_document)
                                         : mark.characters);
    }
    return m_shown.characters;
}
