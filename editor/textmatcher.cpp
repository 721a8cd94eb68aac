// SPDX-License-Identifier: MIT
#include "editor/textmatcher.h"

namespace {

// Capital letters apart, there are two more characters that fold to one of ASCII.
const ushort longS = 0x17f;
const ushort kelvin = 0x212a;

// Without branches, so that compilers do it for several units at once.
template <size_t Count>
ushort isOneOf(const std::array<ushort, 3> &variants, ushort unit)
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

template <size_t Count>
int TextMatcher::skippedBy(const QChar *text, int from, int to) const
{
    const int toLast = length() - 1;
    for (; to - from >= stride + toLast; from += stride) {
        ushort found = 0;
        for (int i = from; i < from + stride; ++i)
            found |= isOneOf<Count>(m_first, text[i].unicode()) &
                     isOneOf<Count>(m_last, text[i + toLast].unicode());
        if (found)
            break;
    }
    return from;
}
