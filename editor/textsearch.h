// SPDX-License-Identifier: MIT
#pragma once

#include "editor/textmatcher.h"

#include <vector>

struct FindRequest;

// A text to search for as QTextDocument::toPlainText() has it: each break is a line feed, and
// no-break spaces, which nobody sees or types as such, are blanks. As many units as before, but for
// the breaks of two.
QString searchable(QString text);

// Finds what QTextDocument::find() finds with the same options, many times faster: it searches one
// plain text, QTextDocument::toPlainText(), whose positions are those of the document. Unlike that
// it finds matches over line breaks too, as Replace All does.
class TextSearch
{
public:
    // Of the options those that say what a match is.
    explicit TextSearch(const FindRequest &request);

    int length() const { return m_matcher.length(); }
    // The first match that begins at or behind a place, or the last one before it; -1: none.
    int next(const QString &text, int from) const;
    int previous(const QString &text, int limit) const;
    // All that lie between two places; they may overlap.
    std::vector<int> matchesBetween(const QString &text, int from, int to) const;

private:
    bool isMatch(const QString &text, int start) const;

    TextMatcher m_matcher;
    bool m_wholeWords;
};
