// SPDX-License-Identifier: MIT
#include "editor/textmatcher.h"

namespace {

// Capital letters apart, there are two more characters that fold to one of ASCII.
const ushort longS = 0x17f;
const ushort kelvin = 0x212a;

// Without branches, so that compilers do it for several units at once.
template <size_t Count>
inline ushort isOneOf(const std::array<ushort, 3> &variants, ushort unit)
{
    ushort found = 0;
    for (size_t i = 0; i < Count; ++i)
        found |= ushort(variants[i] == unit);
    return found;
}

} // namespace

TextMatcher::TextMatcher(const QString &wanted, Qt::CaseSensitivity sensitivity)
    : m_sensitivity(sensitivity), m_wanted(wanted), m_borders(2, 0)
{
    for (QChar &character : m_wanted)
        character = comparable(character);
    for (int i = 1; i < m_wanted.size(); ++i)
        m_borders.push_back(extended(m_borders.back(), m_wanted.at(i)));
    if (m_wanted.isEmpty())
        return;
    const QChar first = m_wanted.at(0);
    const QChar last = m_wanted.at(m_wanted.size() - 1);
    m_canSkip = sensitivity == Qt::CaseSensitive || (first.unicode() < 128 && last.unicode() < 128);
    m_first = variants(first);
    m_last = variants(last);
}

std::vector<int> TextMatcher::matchesIn(const QString &text) const
{
    std::vector<int> starts;
    visitMatches(text, 0, int(text.size()), [&starts](int start) {
        starts.push_back(start);
        return true;
    });
    return starts;
}

TextMatcher::Variants TextMatcher::variants(QChar comparable) const
{
    const ushort unit = comparable.unicode();
    if (m_sensitivity == Qt::CaseSensitive)
        return {{unit, unit, unit}};
    const ushort upper = comparable.toUpper().unicode();
    const ushort other = unit == 's' ? longS : unit == 'k' ? kelvin : upper;
    return {{unit, upper, other}};
}

// How many characters of what is wanted end with the next one, when so many ended before it.
int TextMatcher::extended(int matched, QChar next) const
{
    while (matched > 0 && (matched == m_wanted.size() || m_wanted.at(matched) != next))
        matched = m_borders[size_t(matched)];
    return m_wanted.at(matched) == next ? matched + 1 : 0;
}

// A place before which no match begins; in the stride behind it one may.
int TextMatcher::skipped(const QChar *text, int from, int to) const
{
    if (!m_canSkip)
        return from;
    return m_sensitivity == Qt::CaseSensitive ? skippedBy<1>(text, from, to)
                                              : skippedBy<3>(text, from, to);
}

// Whether a match may begin at one of so many places.
template <size_t Count>
inline ushort TextMatcher::mayBegin(const QChar *first) const
{
    const QChar *last = first + length() - 1;
    ushort found = 0;
    for (int i = 0; i < stride; ++i)
        found |=
            isOneOf<Count>(m_first, first[i].unicode()) & isOneOf<Count>(m_last, last[i].unicode());
    return found;
}

// Several strides for one branch. In some runs of a program the processor guesses every branch of a
// tight loop wrong, which takes many times as long as the comparing.
template <size_t Count>
int TextMatcher::skippedBy(const QChar *text, int from, int to) const
{
    for (; to - from >= 4 * stride + length() - 1; from += 4 * stride) {
        const QChar *place = text + from;
        const ushort first = mayBegin<Count>(place);
        const ushort second = mayBegin<Count>(place + stride);
        const ushort third = mayBegin<Count>(place + 2 * stride);
        const ushort last = mayBegin<Count>(place + 3 * stride);
        if (first | second | third | last)
            return from + (first ? 0 : second ? stride : third ? 2 * stride : 3 * stride);
    }
    return from;
}
