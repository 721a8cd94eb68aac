// SPDX-License-Identifier: MIT
#include "editor/linescanner.h"

#include <algorithm>

namespace {

const unsigned char unmarked = static_cast<unsigned char>(EditorText::Plain);

bool isDigit(ushort unit)
{
    return unit >= '0' && unit <= '9';
}

// Flags and variables are words with their sign, so that their names are no keywords.
bool isSign(ushort unit)
{
    return unit == '-' || unit == '$';
}

int bracketRank(ushort unit)
{
    static const char brackets[] = "(){}[]";
    for (int rank = 0; brackets[rank]; ++rank) {
        if (unit == ushort(brackets[rank]))
            return rank;
    }
    return -1;
}

} // namespace

LineScanner::LineScanner(const ScannerRules &rules, const QHash<QString, QString> &names)
    : m_rules(rules), m_names(names)
{
}

LineScanner::~LineScanner() = default;

void LineScanner::scan(const QString &text, int previousState, LineScan &result)
{
    result.clear();
    m_line = SourceCursor(text);
    m_marks.assign(size_t(text.size()), unmarked);
    m_numberEnd = 0;
    m_knowsWords = false;
    markTokens();
    markLine();
    separate(previousState, result);
    addSpans(result);
}

void LineScanner::mark(int start, int end, EditorText category)
{
    std::fill(m_marks.begin() + start, m_marks.begin() + end, static_cast<unsigned char>(category));
}

void LineScanner::markTokens()
{
    for (int i = 0; i < m_line.size();)
        i = m_line.isWord(i) ? markToken(i) : i + 1;
}

// Returns the end of the word that begins there.
int LineScanner::markToken(int start)
{
    int end = start;
    bool isName = true;
    for (; m_line.isWord(end); ++end)
        isName = isName && isNameUnit(m_line.at(end));
    const bool isBare = isName && !isSign(m_line.at(start - 1));
    // Deliberate: "word-1" has the colour of its word only if the line holds that alone as well.
    if (isBare && (!isSign(m_line.at(end)) || standsAlone(start, end)))
        markWord(start, end);
    if (isDigit(m_line.at(start)))
        markNumber(start);
    return end;
}

void LineScanner::markNumber(int start)
{
    if (start < m_numberEnd)
        return;
    m_numberEnd = start;
    while (isDigit(m_line.at(m_numberEnd)) || m_line.at(m_numberEnd) == '.')
        ++m_numberEnd;
    mark(start, m_numberEnd, m_rules.numberCategory);
}

bool LineScanner::standsAlone(int start, int end)
{
    if (!m_knowsWords) {
        m_words.clear();
        int wordStart = 0;
        for (int i = 0; i <= m_line.size(); ++i) {
            if (isNameUnit(m_line.at(i)) || isSign(m_line.at(i)))
                continue;
            if (i > wordStart)
                m_words.insert(m_line.text(wordStart, i));
            wordStart = i + 1;
        }
        m_knowsWords = true;
    }
    return m_words.contains(m_line.text(start, end));
}

bool LineScanner::markWord(int start, int end)
{
    if (!isKeyword(start, end))
        return false;
    mark(start, end, m_rules.keywordCategory);
    return true;
}

bool LineScanner::isKeyword(int start, int end) const
{
    char word[16];
    const size_t length = size_t(end - start);
    if (length >= sizeof word)
        return false;
    for (size_t i = 0; i < length; ++i)
        word[i] = char(m_line.at(start + int(i)));
    return std::binary_search(m_rules.keywords.begin(), m_rules.keywords.end(),
                              std::string_view(word, length));
}

bool LineScanner::isMelName(int start, int end) const
{
    return !m_names.isEmpty() && m_names.contains(m_line.sharedText(start, end));
}

void LineScanner::markLine() {}

// Strings and comments hide whatever was marked in them.
void LineScanner::separate(int previousState, LineScan &result)
{
    int codeStart = 0;
    int start = 0;
    const Enclosure *enclosure = nullptr;
    for (const Enclosure &each : m_rules.enclosures) {
        if (each.state == previousState && previousState > 0)
            enclosure = &each;
    }
    result.inComment = enclosure && enclosure->isComment;
    int searchFrom = 0; // what is carried over may end at once
    for (;;) {
        if (!enclosure) {
            enclosure = opening(codeStart, start);
            addCode(codeStart, enclosure ? start : m_line.size(), result);
            if (!enclosure)
                return;
            searchFrom = start + int(qstrlen(enclosure->open));
        }
        const int end = closing(*enclosure, searchFrom);
        mark(start, end < 0 ? m_line.size() : end, enclosure->category);
        if (end < 0) {
            const bool goesOn = enclosure->extent == Enclosure::ManyLines ||
                                (enclosure->extent == Enclosure::AfterBackslash &&
                                 m_line.at(m_line.size() - 1) == '\\');
            result.state = goesOn ? enclosure->state : 0;
            return;
        }
        codeStart = end;
        enclosure = nullptr;
    }
}

// The string or comment that begins first at or after `from`; null when none does.
const Enclosure *LineScanner::opening(int from, int &start) const
{
    for (start = from; start < m_line.size(); ++start) {
        const ushort unit = m_line.at(start);
        if (unit != '"' && unit != '\'' && unit != '/' && unit != '#')
            continue;
        for (const Enclosure &each : m_rules.enclosures) {
            if (m_line.startsWith(each.open, start))
                return &each;
        }
    }
    return nullptr;
}

// Behind the text that closes it, or -1. An escaped quote closes nothing.
int LineScanner::closing(const Enclosure &enclosure, int from) const
{
    if (!enclosure.close)
        return -1;
    int end = m_line.findText(enclosure.close, from);
    while (end >= 0 && !enclosure.isComment && m_line.isEscaped(end))
        end = m_line.findText(enclosure.close, end + 1);
    return end < 0 ? end : end + int(qstrlen(enclosure.close));
}

void LineScanner::addCode(int start, int end, LineScan &result) const
{
    result.codeText += m_line.text(start, end);
    const size_t first = result.brackets.size();
    for (int i = start; i < end; ++i) {
        if (bracketRank(m_line.at(i)) >= 0)
            result.brackets.push_back({QChar(m_line.at(i)), i});
    }
    std::stable_sort(result.brackets.begin() + std::ptrdiff_t(first), result.brackets.end(),
                     [](const Bracket &a, const Bracket &b) {
                         return bracketRank(a.character.unicode()) <
                                bracketRank(b.character.unicode());
                     });
}

void LineScanner::addSpans(LineScan &result) const
{
    for (size_t i = 0; i < m_marks.size();) {
        const size_t start = i;
        while (i < m_marks.size() && m_marks[i] == m_marks[start])
            ++i;
        if (m_marks[start] != unmarked)
            result.spans.push_back(
                {int(start), int(i - start), static_cast<EditorText>(m_marks[start])});
    }
}
