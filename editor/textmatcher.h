// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>
#include <vector>

// Looks for a text in others, in time linear in their length. Qt's own search compares the text at
// every place where its last characters fit, which takes minutes for a long text in a long line of
// one and the same character.
class TextMatcher
{
public:
    TextMatcher(const QString &wanted, Qt::CaseSensitivity sensitivity);

    int length() const { return int(m_wanted.size()); }

    // Calls visit(start) for each match between the two places, ascending, until it returns false;
    // matches may overlap. None for an empty text.
    template <typename Visit>
    void visitMatches(const QString &text, int from, int to, Visit visit) const;

    // Where they begin.
    std::vector<int> matchesIn(const QString &text) const;

private:
    // The units that count as one and the same; the last is repeated.
    typedef std::array<ushort, 3> Variants;

    // Places are first looked at by so many at once.
    static const int stride = 8;

    QChar comparable(QChar character) const;
    Variants variants(QChar comparable) const;
    int extended(int matched, QChar next) const;
    int skipped(const QChar *text, int from, int to) const;
    template <size_t Count>
    ushort mayBegin(const QChar *first) const;
    template <size_t Count>
    int skippedBy(const QChar *text, int from, int to) const;

    Qt::CaseSensitivity m_sensitivity;
    QString m_wanted;
    // By a number of first characters of what is wanted: how many of the last of these, but not
    // all, are first characters too.
    std::vector<int> m_borders;
    bool m_canSkip = false; // all variants of the first and of the last character are known
    Variants m_first = {};
    Variants m_last = {};
};

inline QChar TextMatcher::comparable(QChar character) const
{
    if (m_sensitivity == Qt::CaseSensitive)
        return character;
    const ushort unit = character.unicode();
    if (unit >= 128)
        return character.toCaseFolded();
    return QChar(ushort(unit >= 'A' && unit <= 'Z' ? unit + ('a' - 'A') : unit));
}

// The algorithm of Knuth, Morris and Pratt. While nothing has matched, places that cannot begin a
// match are passed over much faster.
template <typename Visit>
void TextMatcher::visitMatches(const QString &text, int from, int to, Visit visit) const
{
    if (m_wanted.isEmpty())
        return;
    const QChar *units = text.constData();
    int matched = 0;
    int lookedAt = from;
    for (int i = from; i < to; ++i) {
        if (matched == 0 && i >= lookedAt) {
            i = skipped(units, i, to);
            lookedAt = i + stride;
            if (i >= to)
                return;
        }
        matched = extended(matched, comparable(units[i]));
        if (matched == length() && !visit(i + 1 - length()))
            return;
    }
}
