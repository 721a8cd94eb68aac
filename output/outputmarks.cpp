// SPDX-License-Identifier: MIT
#include "output/outputmarks.h"

#include <QTextDocument>

#include <algorithm>

namespace {

struct Marker
{
    const char *text;
    OutputText category;
};

const Marker markers[] = {
    {"// Error:", OutputText::Errors},     {"# Error:", OutputText::Errors},
    {"// Warning:", OutputText::Warnings}, {"# Warning:", OutputText::Warnings},
    {"// Result:", OutputText::Results},   {"# Result:", OutputText::Results},
};

bool isPlainWordCharacter(QChar character)
{
    const ushort code = character.unicode();
    return code < 128 && (character.isLetterOrNumber() || code == '_' || code == '-');
}

bool isWordCharacter(const QString &text, int index)
{
    if (index < 0 || index >= text.size())
        return false;
    const QChar character = text.at(index);
    return character.isLetterOrNumber() || character.isMark() || character == QLatin1Char('_');
}

QString closingMark(QChar sign)
{
    return QLatin1String(sign == QLatin1Char('#') ? " #" : " //");
}

// Whether the line ends in the mark and an optional blank. The last line of a document is still
// being written.
bool closes(const QTextBlock &line, const QString &mark)
{
    const QString text = line.text();
    return (text.endsWith(mark) || text.endsWith(mark + QLatin1Char(' '))) && line.next().isValid();
}

bool isWordBorder(const QString &text, int index)
{
    return isWordCharacter(text, index - 1) != isWordCharacter(text, index);
}

} // namespace

bool operator==(const OutputMark &a, const OutputMark &b)
{
    return a.start == b.start && a.end == b.end && a.category == b.category;
}

QTextBlock OutputEnds::find(const QTextDocument &document, const QTextBlock &from, QChar sign)
{
    if (m_revision != document.revision()) {
        *this = OutputEnds();
        m_revision = document.revision();
    }
    Found &known = sign == QLatin1Char('#') ? m_hashes : m_slashes;
    const int first = from.blockNumber();
    if (first >= known.from && first <= known.last)
        return document.findBlockByNumber(known.last);
    const QString mark = closingMark(sign);
    QTextBlock line = from;
    while (line.isValid() && !closes(line, mark))
        line = line.next();
    // There is no block of the number behind the last.
    known = {first, line.isValid() ? line.blockNumber() : document.blockCount()};
    return line;
}

OutputRegion::OutputRegion(const QTextDocument &document, int start, int end, OutputEnds &ends)
    : m_document(document), m_ends(ends), m_next(document.findBlock(start))
{
    m_offset = m_next.position();
    m_start = start - m_offset;
    m_end = end - m_offset;
    while (m_text.size() <= m_end && extend()) {
    }
}

// Appends the next line; its line break too, which the last line of a document has not.
bool OutputRegion::extend()
{
    if (!m_next.isValid())
        return false;
    m_text += m_next.text();
    m_next = m_next.next();
    if (m_next.isValid())
        m_text += QLatin1Char('\n');
    return true;
}

std::vector<OutputMark> OutputRegion::messages()
{
    std::vector<OutputMark> marks;
    for (const Marker &marker : markers)
        addMessages(marker.text, marker.category, marks);
    return marks;
}

void OutputRegion::addMessages(const char *marker, OutputText category,
                               std::vector<OutputMark> &marks)
{
    const QString text = QLatin1String(marker);
    int start = int(m_text.indexOf(text, m_start));
    while (start >= 0 && start < m_end) {
        const int closed = messageEnd(text.at(0), start + int(text.size()));
        const int end = closed < 0 ? m_end : closed;
        if (start == 0 || m_text.at(start - 1) == QLatin1Char('\n'))
            marks.push_back({positionOf(start), positionOf(end), category});
        // Deliberate: a marker inside a line hides those that its message would have covered.
        start = int(m_text.indexOf(text, end));
    }
}

// Behind " //" or " #", an optional blank and the line break; -1 when the document has none.
int OutputRegion::messageEnd(QChar sign, int from)
{
    const QString mark = closingMark(sign);
    for (int found = int(m_text.indexOf(mark, from)); found >= 0;
         found = int(m_text.indexOf(mark, found + 1))) {
        int end = found + int(mark.size());
        if (end < m_text.size() && m_text.at(end) == QLatin1Char(' '))
            ++end;
        if (end < m_text.size() && m_text.at(end) == QLatin1Char('\n'))
            return end + 1;
    }
    const QTextBlock line = m_next.isValid() ? m_ends.find(m_document, m_next, sign) : QTextBlock();
    return line.isValid() ? line.position() + line.length() - m_offset : -1;
}

std::vector<OutputMark> OutputRegion::occurrences(const QString &word) const
{
    std::vector<OutputMark> marks;
    if (word.isEmpty() || !std::all_of(word.begin(), word.end(), isPlainWordCharacter))
        return marks;
    int start = int(m_text.indexOf(word, m_start));
    while (start >= 0 && start <= m_end) {
        const int end = start + int(word.size());
        const bool whole = isWordBorder(m_text, start) && isWordBorder(m_text, end);
        if (whole)
            marks.push_back({positionOf(start), positionOf(end), OutputText::MatchingSelection});
        start = int(m_text.indexOf(word, whole ? end : start + 1));
    }
    return marks;
}
