// SPDX-License-Identifier: MIT
#include "editor/textmatcher.h"

// The algorithm of Knuth, Morris and Pratt.
TextMatcher::TextMatcher(const QString &wanted, Qt::CaseSensitivity sensitivity)
    : m_sensitivity(sensitivity), m_wanted(wanted), m_borders(2, 0)
{
    for (QChar &character : m_wanted)
        character = comparable(character);
    for (int i = 1; i < m_wanted.size(); ++i)
        m_borders.push_back(extended(m_borders.back(), m_wanted.at(i)));
}

std::vector<int> TextMatcher::matchesIn(const QString &text) const
{
    std::vector<int> starts;
    if (m_wanted.isEmpty())
        return starts;
    const int length = int(m_wanted.size());
    int matched = 0;
    for (int i = 0; i < text.size(); ++i) {
        matched = extended(matched, comparable(text.at(i)));
        if (matched == length)
            starts.push_back(i + 1 - length);
    }
    return starts;
}

QChar TextMatcher::comparable(QChar character) const
{
    return m_sensitivity == Qt::CaseSensitive ? character : character.toCaseFolded();
}

// How many characters of what is wanted end with the next one, when so many ended before it.
int TextMatcher::extended(int matched, QChar next) const
{
    while (matched > 0 && (matched == m_wanted.size() || m_wanted.at(matched) != next))
        matched = m_borders[size_t(matched)];
    return m_wanted.at(matched) == next ? matched + 1 : 0;
}
