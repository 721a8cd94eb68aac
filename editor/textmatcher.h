// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

// Looks for a text in others, in time linear in their length. Qt's own search compares the text at
// every place where its last characters fit, which takes minutes for a long text in a long line of
// one and the same character.
class TextMatcher
{
public:
    TextMatcher(const QString &wanted, Qt::CaseSensitivity sensitivity);

    // Where it begins, ascending; matches may overlap. None for an empty text.
    std::vector<int> matchesIn(const QString &text) const;

private:
    QChar comparable(QChar character) const;
    int extended(int matched, QChar next) const;

    Qt::CaseSensitivity m_sensitivity;
    QString m_wanted;
    // By a number of first characters of what is wanted: how many of the last of these, but not
    // all, are first characters too.
    std::vector<int> m_borders;
};
