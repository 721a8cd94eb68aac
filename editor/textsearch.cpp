// SPDX-License-Identifier: MIT
#include "editor/textsearch.h"

#include "editor/findrequest.h"

#include <algorithm>

namespace {

const int firstWindow = 4096; // units searched at first when going backwards

bool isLetterOrNumber(const QString &text, int index)
{
    return index >= 0 && index < text.size() && text.at(index).isLetterOrNumber();
}

// A text without matches when there can be none: no word begins or ends in a blank.
QString wantedText(const FindRequest &request)
{
    const QString text = searchable(request.findText);
    const bool isWord = !request.has(FindRequest::WholeWords) || text == text.trimmed();
    return isWord ? text : QString();
}

} // namespace

QString searchable(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (QChar &character : text) {
        if (character == QLatin1Char('\r') || character == QChar(QChar::ParagraphSeparator) ||
            character == QChar(QChar::LineSeparator))
            character = QLatin1Char('\n');
        else if (character == QChar(QChar::Nbsp))
            character = QLatin1Char(' ');
    }
    return text;
}

TextSearch::TextSearch(const FindRequest &request)
    : m_matcher(wantedText(request),
                request.has(FindRequest::CaseSensitive) ? Qt::CaseSensitive : Qt::CaseInsensitive),
      m_wholeWords(request.has(FindRequest::WholeWords))
{
}

int TextSearch::next(const QString &text, int from) const
{
    int found = -1;
    m_matcher.visitMatches(text, from, int(text.size()), [&](int start) {
        if (isMatch(text, start))
            found = start;
        return found < 0;
    });
    return found;
}

// In windows that grow, so that a near match is found soon and no text is searched twice.
int TextSearch::previous(const QString &text, int limit) const
{
    int found = -1;
    for (int window = firstWindow; found < 0 && limit > 0; window *= 2) {
        const int from = std::max(limit - window, 0);
        const int to = std::min(limit - 1 + length(), int(text.size()));
        for (int start : matchesBetween(text, from, to))
            found = start;
        limit = from;
        window = std::min(window, int(text.size()));
    }
    return found;
}

std::vector<int> TextSearch::matchesBetween(const QString &text, int from, int to) const
{
    std::vector<int> matches;
    m_matcher.visitMatches(text, from, to, [&](int start) {
        if (isMatch(text, start))
            matches.push_back(start);
        return true;
    });
    return matches;
}

bool TextSearch::isMatch(const QString &text, int start) const
{
    return !m_wholeWords ||
           (!isLetterOrNumber(text, start - 1) && !isLetterOrNumber(text, start + length()));
}
