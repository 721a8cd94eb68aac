// SPDX-License-Identifier: MIT
#include "editor/linescanner.h"

#include <algorithm>
#include <cstring>

namespace {

const int usualWord = 64; // characters; longer names only cost an allocation more

bool isDigit(ushort unit)
{
    return unit >= '0' && unit <= '9';
}

// Flags and variables are words with their sign, so that their names are no keywords.
bool isSign(ushort unit)
{
    return unit == '-' || unit == '$';
}

} // namespace

LineScanner::LineScanner(const ScannerRules &rules, const QHash<QString, QString> &names)
    : m_rules(rules), m_names(names)
{
    m_word.reserve(usualWord);
}

LineScanner::~LineScanner() = default;

void LineScanner::scan(const QString &text, int previousState, LineScan &result)
{
    result.clear();
    m_text = &text;
    m_result = &result;
    m_line = SourceCursor(text);
    m_markedEnd = 0;
    m_numberEnd = 0;
    m_knowsWords = false;
    m_codeSize = 0;
    if (const Enclosure *enclosure = m_rules.enclosureLeftOpen(previousState)) {
        result.inComment = enclosure->isComment;
        beginLine(m_line.size());
        scanCode(scanEnclosure(*enclosure, 0, 0)); // it may end at once
    } else {
        beginLine(m_line.skipBlanks(0));
        scanCode(0);
    }
    keepCode();
}

void LineScanner::beginLine(int) {}

// ls -l "a b" + $x
// |     |           a word, an enclosure: each is taken whole, by its own function
void LineScanner::scanCode(int from)
{
    int codeStart = from;
    for (int i = from; i < m_line.size();) {
        const ScannerRules::UnitKind kind = m_rules.kindOf(m_line.at(i));
        if (kind == ScannerRules::Name || (kind == ScannerRules::Foreign && m_line.isWord(i))) {
            i = scanWord(i);
            continue;
        }
        if (kind == ScannerRules::Bracket)
            m_brackets.push_back({QChar(m_line.at(i)), i});
        if (kind == ScannerRules::Opener) {
            if (const Enclosure *enclosure = m_rules.enclosureAt(m_line, i)) {
                addCode(codeStart, i);
                codeStart = scanEnclosure(*enclosure, i, i + int(std::strlen(enclosure->open)));
                i = codeStart;
                continue;
            }
        }
        ++i;
    }
    addCode(codeStart, m_line.size());
}

// Returns the end of the word that begins there. A name with letters beyond ASCII has no
// colour, nor has its part of ASCII.
int LineScanner::scanWord(int start)
{
    const int nameEnd = m_line.skipName(start);
    int end = nameEnd;
    while (m_line.isWord(end))
        ++end;
    const bool isBare = nameEnd == end && !isSign(m_line.at(start - 1));
    const EditorText category = isBare ? wordCategory(start, end) : EditorText::Plain;
    if (isDigit(m_line.at(start)) && start >= m_numberEnd)
        markNumber(start);
    mark(start, end, category);
    return end;
}

// Digits and dots; what follows them without a break is part of the word, but not of the number.
void LineScanner::markNumber(int start)
{
    m_numberEnd = start;
    while (isDigit(m_line.at(m_numberEnd)) || m_line.at(m_numberEnd) == '.')
        ++m_numberEnd;
    mark(start, m_numberEnd, m_rules.numberCategory());
}

bool LineScanner::standsAlone(int start, int end)
{
    if (!isSign(m_line.at(end)))
        return true;
    if (!m_knowsWords)
        noteWords();
    return m_words.contains(m_line.text(start, end));
}

// Only for a line that asks: each of its words becomes a text.
void LineScanner::noteWords()
{
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

bool LineScanner::isMelName(int start, int end)
{
    if (m_names.isEmpty())
        return false;
    // In the room that is there: a word that is to be looked up alone costs no memory.
    m_word.resize(end - start);
    std::copy_n(m_text->constData() + start, end - start, m_word.data());
    return m_names.contains(m_word);
}

// Spans that touch and are of one category become one: each costs a call of the highlighter.
void LineScanner::mark(int start, int end, EditorText category)
{
    start = std::max(start, m_markedEnd);
    if (start >= end || category == EditorText::Plain)
        return;
    std::vector<FormatSpan> &spans = m_result->spans;
    if (!spans.empty() && start == m_markedEnd && spans.back().category == category)
        spans.back().length += end - start;
    else
        spans.push_back({start, end - start, category});
    m_markedEnd = end;
}

// "a\"b" + c
// ||    |      start, searchFrom and the result
int LineScanner::scanEnclosure(const Enclosure &enclosure, int start, int searchFrom)
{
    const int end = closing(enclosure, searchFrom);
    mark(start, end < 0 ? m_line.size() : end, enclosure.category);
    if (end >= 0)
        return end;
    if (enclosure.extent == Enclosure::ManyLines ||
        (enclosure.extent == Enclosure::AfterBackslash && m_line.at(m_line.size() - 1) == '\\'))
        m_result->state = enclosure.state;
    return m_line.size();
}

// Behind the text that closes it, or -1. An escaped quote closes nothing; in comments a backslash
// means nothing.
int LineScanner::closing(const Enclosure &enclosure, int from) const
{
    if (!enclosure.close)
        return -1;
    int end = m_line.findText(enclosure.close, from);
    while (end >= 0 && !enclosure.isComment && m_line.isEscaped(end))
        end = m_line.findText(enclosure.close, end + 1);
    return end < 0 ? end : end + int(std::strlen(enclosure.close));
}

// Into room that is never given back: a text that grew for each stretch would be allocated anew for
// every line.
void LineScanner::addCode(int start, int end)
{
    addBrackets();
    if (m_code.size() < m_line.size())
        m_code.resize(m_line.size());
    std::copy(m_text->constData() + start, m_text->constData() + end, m_code.data() + m_codeSize);
    m_codeSize += end - start;
}

// A line without strings and comments shares its text.
void LineScanner::keepCode()
{
    if (m_codeSize == m_line.size())
        m_result->codeText = *m_text;
    else if (m_codeSize > 0)
        m_result->codeText = QString(m_code.constData(), m_codeSize);
}

// Six walks over a handful of brackets; most stretches have none.
void LineScanner::addBrackets()
{
    if (m_brackets.empty())
        return;
    std::vector<Bracket> &brackets = m_result->brackets;
    for (const char character : {'(', ')', '{', '}', '[', ']'}) {
        for (const Bracket &each : m_brackets) {
            if (each.character == QLatin1Char(character))
                brackets.push_back(each);
        }
    }
    m_brackets.clear();
}
