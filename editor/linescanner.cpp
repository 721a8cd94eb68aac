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

const int bracketKinds = 6;

// In the order ( ) { } [ ], whatever their columns.
int bracketRank(QChar character)
{
    switch (character.unicode()) {
    case '(':
        return 0;
    case ')':
        return 1;
    case '{':
        return 2;
    case '}':
        return 3;
    case '[':
        return 4;
    default:
        return 5;
    }
}

bool comesBefore(const Bracket &a, const Bracket &b)
{
    return bracketRank(a.character) < bracketRank(b.character);
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
    m_codeStart = 0;
    m_codeSize = 0;
    if (const Enclosure *enclosure = m_rules.enclosureLeftOpen(previousState)) {
        result.inComment = enclosure->isComment;
        beginLine(m_line.size());
        const int code = scanEnclosure(*enclosure, 0, 0); // it may end at once
        scanCode(code, code);
    } else {
        const int solid = m_line.skipBlanks(0);
        beginLine(solid);
        scanCode(0, solid);
    }
    keepCode();
}

void LineScanner::beginLine(int) {}

// ls -l "a b" + $x
// |     |           a word, an enclosure: each is taken whole, by its own function
void LineScanner::scanCode(int codeStart, int from)
{
    const SourceCursor line = m_line; // a copy of its own stays in registers
    for (int i = from; i < line.size();) {
        const ScannerRules::UnitKind kind = m_rules.kindOf(line.at(i));
        if (kind == ScannerRules::Name || (kind == ScannerRules::Foreign && line.isWord(i))) {
            i = scanWord(i);
            continue;
        }
        if (kind == ScannerRules::Bracket)
            m_brackets.push_back({QChar(line.at(i)), i});
        if (kind == ScannerRules::Opener) {
            if (const Enclosure *enclosure = m_rules.enclosureAt(line, i)) {
                addCode(codeStart, i);
                codeStart = scanEnclosure(*enclosure, i, i + int(std::strlen(enclosure->open)));
                i = codeStart;
                continue;
            }
        }
        ++i;
    }
    addCode(codeStart, line.size());
}

// Returns the end of the word that begins there. A name with letters beyond ASCII has no
// colour, nor has its part of ASCII.
int LineScanner::scanWord(int start)
{
    const SourceCursor line = m_line;
    const int nameEnd = line.skipName(start);
    int end = nameEnd;
    while (line.isWord(end))
        ++end;
    const bool isBare = nameEnd == end && !isSign(line.at(start - 1));
    const EditorText category = isBare ? wordCategory(start, end) : EditorText::Plain;
    if (isDigit(line.at(start)) && start >= m_numberEnd)
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

// The first stretch is remembered; only further ones are joined, in room that is never given back.
void LineScanner::addCode(int start, int end)
{
    addBrackets();
    if (start == end)
        return;
    if (m_codeSize == 0) {
        m_codeStart = start;
        m_codeSize = end - start;
        return;
    }
    if (m_code.size() < m_line.size())
        m_code.resize(m_line.size());
    const QChar *text = m_text->constData();
    if (m_codeStart >= 0)
        std::copy_n(text + m_codeStart, m_codeSize, m_code.data());
    m_codeStart = -1;
    std::copy(text + start, text + end, m_code.data() + m_codeSize);
    m_codeSize += end - start;
}

// A line without strings and comments, as most are, costs no text of its own.
void LineScanner::keepCode()
{
    m_result->isAllCode = m_codeSize == m_line.size();
    if (!m_result->isAllCode && m_codeSize > 0)
        m_result->mixedCode = QString(
            m_codeStart < 0 ? m_code.constData() : m_text->constData() + m_codeStart, m_codeSize);
}

// Most stretches have none, or have them in order: f(g(x)). Others cost six walks over a handful.
void LineScanner::addBrackets()
{
    if (m_brackets.empty())
        return;
    std::vector<Bracket> &brackets = m_result->brackets;
    if (std::is_sorted(m_brackets.begin(), m_brackets.end(), comesBefore)) {
        brackets.insert(brackets.end(), m_brackets.begin(), m_brackets.end());
        m_brackets.clear();
        return;
    }
    for (int rank = 0; rank < bracketKinds; ++rank) {
        for (const Bracket &each : m_brackets) {
            if (bracketRank(each.character) == rank)
                brackets.push_back(each);
        }
    }
    m_brackets.clear();
}
