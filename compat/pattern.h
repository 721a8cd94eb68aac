// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
#include <QRegularExpression>
#else
#include <QRegExp>
#endif

// A regular expression with the same meaning on every Qt version: classes such as \w and \s follow
// Unicode, "^" matches at index 0 of the text only, wherever the search begins, "$" at its very end
// only, and "." any character. Of alternatives that begin alike write the longest first: some
// engines take the first that fits. Positions are 0-based UTF-16 units. Not for loops over a
// document: those compare characters.
class Pattern
{
public:
    // A pattern that is not valid matches nothing.
    explicit Pattern(const QString &pattern, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

    // The start of the first match at or after `from`, or -1.
    int indexIn(const QString &text, int from = 0);

    // Whether the whole text matches.
    bool exactMatch(const QString &text);

    // Of the last match; -1 and an empty text when there was none. Group 0 is the whole match, and
    // a group that took no part is empty.
    int matchedLength() const;
    QString captured(int group = 0) const;

private:
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    int keep(const QRegularExpressionMatch &match);

    QRegularExpression m_expression;
    QRegularExpression m_wholeText;
#else
    int keep(int index);

    QRegExp m_expression;
#endif
    int m_length = -1; // like m_captured of the last match, which both engines report differently
    QStringList m_captured;
};
