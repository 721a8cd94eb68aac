// SPDX-License-Identifier: MIT
#include "output/outputmarks.h"

#include "analysis/wordunits.h"

#include <QTextDocument>

#include <algorithm>

namespace {

// How Maya's messages begin, those of MEL with slashes and those of Python with a number sign.
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

// Only such words are looked for when they are selected; the hyphen is for flags.
bool isPlainWordCharacter(QChar character)
{
    return isNameUnit(character.unicode()) || character == QLatin1Char('-');
}

bool isWordCharacter(const QString &text, int index)
{
    const int size = int(text.size());
    return index >= 0 && index < size && isWordUnit(text.constData(), size, index);
}

// As "\b" in a pattern: between a character of a word and one that is none, or an end of the text.
bool isWordBorder(const QString &text, int index)
{
    return isWordCharacter(text, index - 1) != isWordCharacter(text, index);
}

} // namespace

bool operator==(const OutputMark &a, const OutputMark &b)
{
    return a.start == b.start && a.end == b.end && a.category == b.category;
}

OutputRegion::OutputRegion(const QTextDocument &document, int start, int end)
    : m_next(document.findBlock(start))
{
    m_offset = m_next.position();
    m_start = start - m_offset;
    m_end = end - m_offset;
    // Beyond the end, so that a word that begins right there is looked at as a whole.
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

// # Error: name 'x' is not defined #
// |                                 |    the closing mark ends with the line break
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
    const QString closing = sign == QLatin1Char('#') ? QLatin1String(" #") : QLatin1String(" //");
    while (true) {
        const int found = int(m_text.indexOf(closing, from));
        if (found < 0) {
            // Not all over again: only the next line is new.
            from = std::max(from, int(m_text.size()) - int(closing.size()));
            if (!extend())
                return -1;
            continue;
        }
        int end = found + int(closing.size());
        if (end < m_text.size() && m_text.at(end) == QLatin1Char(' '))
            ++end;
        if (end < m_text.size() && m_text.at(end) == QLatin1Char('\n'))
            return end + 1;
        from = found + 1;
    }
}

// A word that begins or ends with a hyphen has no border there between blanks, so it is found only
// beside the characters of another word.
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
