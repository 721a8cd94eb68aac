// SPDX-License-Identifier: MIT
#include "editor/findreplace.h"

#include "editor/editblock.h"
#include "editor/textmatcher.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <vector>

namespace {

// Of one line. With more matches than these it is replaced at once, at the cost of the marks
// between them: each edit takes time for all parts of its line.
const size_t mostLineEdits = 100;

// Of a text after Replace All; far more than an editor can show and far less than would exhaust the
// memory of the host.
const qint64 mostCharacters = 1 << 28;

typedef std::vector<int> Matches; // their starts, ascending

// Each break is one character, as it is in a document.
QString withDocumentBreaks(QString text)
{
    const QString lineBreak(QChar::ParagraphSeparator);
    text.replace(QLatin1String("\r\n"), lineBreak);
    text.replace(QLatin1Char('\r'), lineBreak);
    text.replace(QLatin1Char('\n'), lineBreak);
    return text;
}

// Nobody sees or types no-break spaces as such.
QString withPlainBlanks(QString text)
{
    return text.replace(QChar(QChar::Nbsp), QLatin1Char(' '));
}

// A request with the texts as they are searched for and inserted.
FindRequest prepared(const FindRequest &request)
{
    return {withPlainBlanks(withDocumentBreaks(request.findText)),
            withDocumentBreaks(request.replaceText), request.options};
}

Qt::CaseSensitivity sensitivity(const FindRequest &request)
{
    return request.has(FindRequest::CaseSensitive) ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

// No word begins or ends in a blank.
bool canMatch(const FindRequest &request)
{
    const QString &text = request.findText;
    return !text.isEmpty() && (!request.has(FindRequest::WholeWords) || text == text.trimmed());
}

bool selectsMatch(const QTextCursor &cursor, const FindRequest &request)
{
    const QString selected = withPlainBlanks(cursor.selectedText());
    return !selected.isEmpty() && selected.compare(request.findText, sensitivity(request)) == 0;
}

void select(QTextCursor &cursor, int start, int end)
{
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
}

void replaceSelection(QTextCursor &cursor, const QString &text)
{
    const int start = cursor.selectionStart();
    cursor.insertText(text);
    select(cursor, start, cursor.position());
}

bool isLetterOrNumber(const QString &text, int index)
{
    return index >= 0 && index < text.size() && text.at(index).isLetterOrNumber();
}

// As QTextDocument::find() has it.
Matches wholeWords(const Matches &matches, const QString &text, const FindRequest &request)
{
    Matches words;
    for (int start : matches) {
        const int end = start + int(request.findText.size());
        if (!isLetterOrNumber(text, start - 1) && !isLetterOrNumber(text, end))
            words.push_back(start);
    }
    return words;
}

// The start of the match in the line that is next to a place before, inside or behind the line; -1
// when there is none.
int matchInLine(const QTextBlock &line, const TextMatcher &matcher, const FindRequest &request,
                int place)
{
    const QString text = withPlainBlanks(line.text());
    Matches matches = matcher.matchesIn(text);
    if (request.has(FindRequest::WholeWords))
        matches = wholeWords(matches, text, request);
    const int column = place - line.position();
    if (request.has(FindRequest::Backward)) {
        const auto behind = std::upper_bound(matches.begin(), matches.end(), column);
        return behind == matches.begin() ? -1 : line.position() + *(behind - 1);
    }
    const auto match = std::lower_bound(matches.begin(), matches.end(), column);
    return match == matches.end() ? -1 : line.position() + *match;
}

// Like QTextDocument::find(), a match does not go over line breaks. Null when there is none.
QTextCursor nextMatch(QTextDocument *document, const FindRequest &request, int from)
{
    const TextMatcher matcher(request.findText, sensitivity(request));
    const bool isBackward = request.has(FindRequest::Backward);
    const int place = isBackward ? from - 1 : from;
    QTextBlock line = document->findBlock(place);
    for (; line.isValid(); line = isBackward ? line.previous() : line.next()) {
        const int start = matchInLine(line, matcher, request, place);
        if (start < 0)
            continue;
        QTextCursor match(document);
        select(match, start, start + int(request.findText.size()));
        return match;
    }
    return QTextCursor();
}

// Selects the next match that begins at or behind `from`, or, backwards, before it.
FindOutcome find(QTextCursor &cursor, const FindRequest &request, int from)
{
    FindOutcome outcome;
    QTextDocument *document = cursor.document();
    QTextCursor match;
    if (canMatch(request)) {
        match = nextMatch(document, request, from);
        if (match.isNull() && request.has(FindRequest::Wrap)) {
            outcome.messages << QString::fromLatin1("Wrapped search");
            const int end = document->characterCount() - 1;
            match = nextMatch(document, request, request.has(FindRequest::Backward) ? end : 0);
        }
    }
    outcome.selectsMatch = !match.isNull();
    if (outcome.selectsMatch)
        cursor = match;
    else
        outcome.messages << QString::fromLatin1("String Not Found");
    return outcome;
}

// A match that is selected already is not found again; one that overlaps it is.
FindOutcome findNext(QTextCursor &cursor, const FindRequest &request)
{
    if (request.has(FindRequest::Backward))
        return find(cursor, request, cursor.selectionStart());
    const bool isMatch = selectsMatch(cursor, request);
    return find(cursor, request, isMatch ? cursor.selectionStart() + 1 : cursor.selectionEnd());
}

FindOutcome replace(QTextCursor &cursor, const FindRequest &request)
{
    FindOutcome outcome;
    outcome.selectsMatch = !request.replaceText.isEmpty() && selectsMatch(cursor, request);
    if (outcome.selectsMatch)
        replaceSelection(cursor, request.replaceText);
    return outcome;
}

// Deliberate: an empty text replaces nothing and searches nothing, so that no series of key presses
// takes matches out.
FindOutcome replaceAndFind(QTextCursor &cursor, const FindRequest &request)
{
    if (request.findText.isEmpty() || request.replaceText.isEmpty())
        return FindOutcome();
    if (!selectsMatch(cursor, request))
        return findNext(cursor, request);
    replaceSelection(cursor, request.replaceText);
    const bool isBackward = request.has(FindRequest::Backward);
    FindOutcome outcome =
        find(cursor, request, isBackward ? cursor.selectionStart() : cursor.selectionEnd());
    outcome.selectsMatch = true; // or what was put in its place
    return outcome;
}

bool isWordCharacter(const QString &text, int index)
{
    if (index < 0 || index >= text.size())
        return false;
    const QChar character = text.at(index);
    return character.isLetterOrNumber() || character.isMark() || character == QLatin1Char('_');
}

// As "\b" has it: of the characters on both sides just one belongs to a word.
bool isWordEdge(const QString &text, int index)
{
    return isWordCharacter(text, index - 1) != isWordCharacter(text, index);
}

// Those that do not overlap an earlier one.
Matches matchesIn(const QString &text, const FindRequest &request)
{
    if (!canMatch(request))
        return Matches();
    const bool isWord = request.has(FindRequest::WholeWords);
    const int length = int(request.findText.size());
    const TextMatcher matcher(request.findText, sensitivity(request));
    Matches matches;
    for (int start : matcher.matchesIn(text)) {
        const bool overlaps = !matches.empty() && start < matches.back() + length;
        if (!overlaps && (!isWord || (isWordEdge(text, start) && isWordEdge(text, start + length))))
            matches.push_back(start);
    }
    return matches;
}

// Replaces all matches in a range of a document. What lies between them is left alone, and with it
// its block data and marks.
class RangeEdit
{
public:
    RangeEdit(QTextDocument *document, int start, int end, const FindRequest &request);

    int count() const { return int(m_matches.size()); }
    qint64 newLength() const { return m_text.size() + qint64(count()) * growth(); }
    void perform();
    // Where a position of the document has come to.
    int moved(int position) const;

private:
    int growth() const { return int(m_replacement.size()) - m_length; }
    size_t firstInLine(size_t last) const;
    void replaceMatches(size_t first, size_t last);
    QString replaced(size_t first, size_t last) const;

    QTextCursor m_cursor;
    int m_start;
    int m_length; // of a match
    QString m_text;
    QString m_replacement;
    Matches m_matches; // in the text
};

RangeEdit::RangeEdit(QTextDocument *document, int start, int end, const FindRequest &request)
    : m_cursor(document), m_start(start), m_length(int(request.findText.size())),
      m_replacement(request.replaceText)
{
    select(m_cursor, start, end);
    m_text = m_cursor.selectedText();
    m_matches = matchesIn(withPlainBlanks(m_text), request);
}

// From the end, so that the places of the others stay.
void RangeEdit::perform()
{
    const EditBlock step(m_cursor);
    for (size_t end = m_matches.size(); end > 0;) {
        const size_t first = firstInLine(end - 1);
        if (end - first > mostLineEdits) {
            replaceMatches(first, end - 1);
        } else {
            for (size_t i = end; i > first; --i)
                replaceMatches(i - 1, i - 1);
        }
        end = first;
    }
}

// Of the matches up to the one given, the first in its line.
size_t RangeEdit::firstInLine(size_t last) const
{
    const int lineBreak = int(m_text.lastIndexOf(QChar::ParagraphSeparator, m_matches[last]));
    const auto first = std::lower_bound(m_matches.begin(), m_matches.end(), lineBreak);
    return size_t(first - m_matches.begin());
}

// Both included, in one edit.
void RangeEdit::replaceMatches(size_t first, size_t last)
{
    select(m_cursor, m_start + m_matches[first], m_start + m_matches[last] + m_length);
    m_cursor.insertText(replaced(first, last));
}

QString RangeEdit::replaced(size_t first, size_t last) const
{
    QString text = m_replacement;
    for (size_t i = first; i < last; ++i) {
        const int end = m_matches[i] + m_length;
        text += m_text.mid(end, m_matches[i + 1] - end) + m_replacement;
    }
    return text;
}

// From inside a match behind its replacement.
int RangeEdit::moved(int position) const
{
    const auto next = std::lower_bound(m_matches.begin(), m_matches.end(), position - m_start);
    if (next == m_matches.begin())
        return position;
    const int matchEnd = m_start + *(next - 1) + m_length;
    return std::max(position, matchEnd) + int(next - m_matches.begin()) * growth();
}

QString replacedMessage(int count)
{
    if (count == 0)
        return QString::fromLatin1("String Not Found");
    return QString::fromLatin1(count == 1 ? "%1 match replaced" : "%1 matches replaced").arg(count);
}

// The text of a selection is searched as if there were no other; what has become of it is selected.
FindOutcome replaceAll(QTextCursor &cursor, const FindRequest &request)
{
    QTextDocument *document = cursor.document();
    const bool inSelection = request.has(FindRequest::InSelection);
    const int start = inSelection ? cursor.selectionStart() : 0;
    const int end = inSelection ? cursor.selectionEnd() : document->characterCount() - 1;
    RangeEdit edit(document, start, end, request);
    if (edit.newLength() > mostCharacters)
        return {QStringList(QString::fromLatin1("Text Would Be Too Long")), false};
    const FindOutcome outcome = {QStringList(replacedMessage(edit.count())), false};
    if (edit.count() == 0)
        return outcome;
    const int anchor = inSelection ? start : edit.moved(cursor.anchor());
    const int position = inSelection ? edit.moved(end) : edit.moved(cursor.position());
    edit.perform();
    select(cursor, anchor, position);
    return outcome;
}

} // namespace

FindOutcome findReplace(QTextCursor &cursor, const FindRequest &request)
{
    const FindRequest wanted = prepared(request);
    if (wanted.has(FindRequest::Replace))
        return replace(cursor, wanted);
    if (wanted.has(FindRequest::ReplaceAndFind))
        return replaceAndFind(cursor, wanted);
    if (wanted.has(FindRequest::ReplaceAll))
        return replaceAll(cursor, wanted);
    return findNext(cursor, wanted);
}
