// SPDX-License-Identifier: MIT
#include "editor/findreplace.h"

#include "editor/editblock.h"
#include "editor/textmatcher.h"
#include "editor/textsearch.h"

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

// A request with the texts as they are searched for and inserted.
FindRequest prepared(const FindRequest &request)
{
    return {searchable(request.findText), withDocumentBreaks(request.replaceText), request.options};
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
    const QString selected = searchable(cursor.selectedText());
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

// The start of the next match that begins at or behind `from`, or, backwards, before it; -1: none.
int nextMatch(const QString &text, const FindRequest &request, int from)
{
    const TextSearch search(request);
    return request.has(FindRequest::Backward) ? search.previous(text, from)
                                              : search.next(text, from);
}

// Selects that match.
FindOutcome find(QTextCursor &cursor, const FindRequest &request, const QString &text, int from)
{
    FindOutcome outcome;
    int start = -1;
    if (canMatch(request)) {
        start = nextMatch(text, request, from);
        if (start < 0 && request.has(FindRequest::Wrap)) {
            outcome.messages << QString::fromLatin1("Wrapped search");
            const int end = int(text.size());
            start = nextMatch(text, request, request.has(FindRequest::Backward) ? end : 0);
        }
    }
    outcome.selectsMatch = start >= 0;
    if (outcome.selectsMatch)
        select(cursor, start, start + int(request.findText.size()));
    else
        outcome.messages << QString::fromLatin1("String Not Found");
    return outcome;
}

// A match that is selected already is not found again; one that overlaps it is.
FindOutcome findNext(QTextCursor &cursor, const FindRequest &request, const QString &text)
{
    if (request.has(FindRequest::Backward))
        return find(cursor, request, text, cursor.selectionStart());
    const bool isMatch = selectsMatch(cursor, request);
    return find(cursor, request, text,
                isMatch ? cursor.selectionStart() + 1 : cursor.selectionEnd());
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
FindOutcome replaceAndFind(QTextCursor &cursor, const FindRequest &request, QString text)
{
    if (request.findText.isEmpty() || request.replaceText.isEmpty())
        return FindOutcome();
    if (!selectsMatch(cursor, request))
        return findNext(cursor, request, text);
    text.replace(cursor.selectionStart(), int(request.findText.size()),
                 searchable(request.replaceText));
    replaceSelection(cursor, request.replaceText);
    const bool isBackward = request.has(FindRequest::Backward);
    FindOutcome outcome =
        find(cursor, request, text, isBackward ? cursor.selectionStart() : cursor.selectionEnd());
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

// Calls visit(start) for each match that does not overlap an earlier one.
template <typename Visit>
void visitMatches(const QString &text, const FindRequest &request, Visit visit)
{
    if (!canMatch(request))
        return;
    const bool isWord = request.has(FindRequest::WholeWords);
    const int length = int(request.findText.size());
    int end = 0; // of the last of them
    const TextMatcher matcher(request.findText, sensitivity(request));
    matcher.visitMatches(text, 0, int(text.size()), [&](int start) {
        if (start >= end &&
            (!isWord || (isWordEdge(text, start) && isWordEdge(text, start + length)))) {
            visit(start);
            end = start + length;
        }
        return true;
    });
}

Matches matchesIn(const QString &text, const FindRequest &request)
{
    Matches matches;
    visitMatches(text, request, [&matches](int start) { matches.push_back(start); });
    return matches;
}

// Replaces all matches in a range of a document. What lies between them is left alone, and with it
// its block data and marks.
class RangeEdit
{
public:
    // The text is that of the range.
    RangeEdit(QTextDocument *document, int start, const QString &text, const FindRequest &request);

    int count() const { return int(m_matches.size()); }
    qint64 newLength() const { return m_text.size() + qint64(count()) * growth(); }
    // Undoing it leads back to where the caret is now.
    void perform(QTextCursor &caret);
    // Where a position of the document has come to.
    int moved(int position) const;

private:
    int growth() const { return int(m_replacement.size()) - m_length; }
    size_t endOfLine(size_t match) const;
    void replaceMatches(size_t first, size_t last, size_t done);
    QString replaced(size_t first, size_t last, const QString &old) const;

    QTextCursor m_cursor;
    int m_start;
    int m_length;   // of a match
    QString m_text; // as it is searched
    QString m_replacement;
    Matches m_matches; // in the text
};

RangeEdit::RangeEdit(QTextDocument *document, int start, const QString &text,
                     const FindRequest &request)
    : m_cursor(document), m_start(start), m_length(int(request.findText.size())), m_text(text),
      m_replacement(request.replaceText), m_matches(matchesIn(text, request))
{
}

// From the start on: undoing it, which goes back, is quicker than the other way round.
void RangeEdit::perform(QTextCursor &caret)
{
    const EditBlock step(caret);
    for (size_t first = 0; first < m_matches.size();) {
        const size_t end = endOfLine(first);
        if (end - first > mostLineEdits) {
            replaceMatches(first, end - 1, first);
        } else {
            for (size_t i = first; i < end; ++i)
                replaceMatches(i, i, i);
        }
        first = end;
    }
}

// Behind a match the first one of another line.
size_t RangeEdit::endOfLine(size_t match) const
{
    const int lineBreak = int(m_text.indexOf(QLatin1Char('\n'), m_matches[match]));
    if (lineBreak < 0)
        return m_matches.size();
    const auto next = std::upper_bound(m_matches.begin(), m_matches.end(), lineBreak);
    return size_t(next - m_matches.begin());
}

// Both included, in one edit, when so many in front of them are replaced.
void RangeEdit::replaceMatches(size_t first, size_t last, size_t done)
{
    const int start = m_start + int(done) * growth();
    select(m_cursor, start + m_matches[first], start + m_matches[last] + m_length);
    m_cursor.insertText(replaced(first, last, m_cursor.selectedText()));
}

// What lies between them is as in the document, with its no-break spaces.
QString RangeEdit::replaced(size_t first, size_t last, const QString &old) const
{
    QString text = m_replacement;
    for (size_t i = first; i < last; ++i) {
        const int end = m_matches[i] + m_length;
        text += old.mid(end - m_matches[first], m_matches[i + 1] - end) + m_replacement;
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
FindOutcome replaceAll(QTextCursor &cursor, const FindRequest &request, const QString &text)
{
    QTextDocument *document = cursor.document();
    const bool inSelection = request.has(FindRequest::InSelection);
    const int start = inSelection ? cursor.selectionStart() : 0;
    const int end = inSelection ? cursor.selectionEnd() : int(text.size());
    RangeEdit edit(document, start, text.mid(start, end - start), request);
    if (edit.newLength() > mostCharacters)
        return {QStringList(QString::fromLatin1("Text Would Be Too Long")), false};
    const FindOutcome outcome = {QStringList(replacedMessage(edit.count())), false};
    if (edit.count() == 0)
        return outcome;
    const int anchor = inSelection ? start : edit.moved(cursor.anchor());
    const int position = inSelection ? edit.moved(end) : edit.moved(cursor.position());
    edit.perform(cursor);
    select(cursor, anchor, position);
    return outcome;
}

} // namespace

FindOutcome findReplace(QTextCursor &cursor, const FindRequest &request)
{
    return findReplace(cursor, request, cursor.document()->toPlainText());
}

FindOutcome findReplace(QTextCursor &cursor, const FindRequest &request, const QString &text)
{
    const FindRequest wanted = prepared(request);
    if (wanted.has(FindRequest::Replace))
        return replace(cursor, wanted);
    if (wanted.has(FindRequest::ReplaceAndFind))
        return replaceAndFind(cursor, wanted, text);
    if (wanted.has(FindRequest::ReplaceAll))
        return replaceAll(cursor, wanted, text);
    return findNext(cursor, wanted, text);
}

int replaceableMatches(const FindRequest &request, const QString &text)
{
    int count = 0;
    visitMatches(text, prepared(request), [&count](int) { ++count; });
    return count;
}
