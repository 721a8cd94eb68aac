// SPDX-License-Identifier: MIT
#include "standin/mel/pattern.h"

#include "standin/mel/command.h"
#include "standin/mel/utf8.h"

namespace mel {

namespace {

// Bytes, and levels of parentheses: far beyond real expressions, and low enough that neither time
// nor stack matters.
constexpr size_t longestExpression = 10000;
constexpr int deepestGroup = 200;

[[noreturn]] void failExpression(std::string_view expression)
{
    throw RuntimeError("Invalid regular expression \"" + std::string(expression.substr(0, 100)) +
                       "\".");
}

} // namespace

// Ranges are few, so they are searched one by one.
bool Pattern::Set::contains(char32_t code) const
{
    for (const auto &range : ranges) {
        if (code >= range.first && code <= range.second)
            return !negated;
    }
    return negated;
}

// Turns an expression into steps.
// Lives for the constructor only. Nesting is the only recursion, hence its limit.
class Pattern::Compiler
{
public:
    Compiler(Pattern &pattern, std::string_view expression)
        : m_pattern(pattern), m_expression(expression)
    {
    }

    void compile()
    {
        if (m_expression.size() > longestExpression)
            failExpression(m_expression);
        sequence(0);
        if (m_at < m_expression.size())
            failExpression(m_expression);
        m_pattern.m_steps.push_back({Kind::Done});
    }

private:
    bool atEnd() const { return m_at >= m_expression.size(); }
    // The next character, past it; an error at the end.
    char32_t take();
    //   sequence = (item ("*" | "+")*)*
    void sequence(int depth);
    //   item = "." | "^" | "$" | "[" set "]" | "\" character | "(" sequence ")" | character
    void item(int depth);
    void repeat(size_t from, bool atLeastOnce);
    void literal(char32_t code);
    void set();
    size_t size() const { return m_pattern.m_steps.size(); }

    Pattern &m_pattern;
    std::string_view m_expression;
    size_t m_at = 0;
};

char32_t Pattern::Compiler::take()
{
    if (atEnd())
        failExpression(m_expression);
    const Character character = characterAt(m_expression, m_at);
    m_at += character.length;
    return character.code;
}

void Pattern::Compiler::sequence(int depth)
{
    if (depth > deepestGroup)
        failExpression(m_expression);
    while (!atEnd() && m_expression[m_at] != ')') {
        const size_t from = size();
        item(depth);
        while (!atEnd() && (m_expression[m_at] == '*' || m_expression[m_at] == '+'))
            repeat(from, take() == '+');
    }
}

void Pattern::Compiler::item(int depth)
{
    const char32_t code = take();
    switch (code) {
    case '.':
        return m_pattern.m_steps.push_back({Kind::Any});
    case '^':
        return m_pattern.m_steps.push_back({Kind::LineStart});
    case '$':
        return m_pattern.m_steps.push_back({Kind::LineEnd});
    case '[':
        return set();
    case '\\':
        return literal(take());
    case '(':
        sequence(depth + 1);
        if (take() != ')')
            failExpression(m_expression);
        return;
    default:
        literal(code);
    }
}

// Wraps the steps from `from` on into a loop; being relative, they can move.
void Pattern::Compiler::repeat(size_t from, bool atLeastOnce)
{
    auto &steps = m_pattern.m_steps;
    const int length = static_cast<int>(size() - from);
    //   x+:  x, then back or on          x*:  skip or enter x, then back
    if (atLeastOnce) {
        steps.push_back({Kind::Split, 0, -length, 1});
        return;
    }
    steps.insert(steps.begin() + static_cast<std::ptrdiff_t>(from),
                 {Kind::Split, 0, 1, length + 2});
    steps.push_back({Kind::Jump, 0, -length - 1});
}

// A set of one, so that matching needs to know no further kind of step.
void Pattern::Compiler::literal(char32_t code)
{
    m_pattern.m_sets.push_back({false, {{code, code}}});
    m_pattern.m_steps.push_back({Kind::Set, static_cast<int>(m_pattern.m_sets.size()) - 1});
}

void Pattern::Compiler::set()
{
    Set set;
    set.negated = !atEnd() && m_expression[m_at] == '^';
    m_at += set.negated ? 1 : 0;
    // A closing bracket that comes first is meant literally.
    for (bool first = true; first || atEnd() || m_expression[m_at] != ']'; first = false) {
        char32_t low = take();
        if (low == '\\')
            low = take();
        char32_t high = low;
        const bool range = m_at + 1 < m_expression.size() && m_expression[m_at] == '-' &&
                           m_expression[m_at + 1] != ']';
        if (range) {
            ++m_at;
            high = take();
        }
        set.ranges.push_back({low, high});
    }
    ++m_at;
    m_pattern.m_sets.push_back(std::move(set));
    m_pattern.m_steps.push_back({Kind::Set, static_cast<int>(m_pattern.m_sets.size()) - 1});
}

Pattern::Pattern(std::string_view expression)
{
    Compiler(*this, expression).compile();
}

// Follows all threads through the text, those that began earlier first.
// One matcher per search. No step is visited twice at one position, which bounds the work.
class Pattern::Matcher
{
public:
    Matcher(const Pattern &pattern, std::string_view text)
        : m_pattern(pattern), m_text(text), m_visited(pattern.m_steps.size(), 0)
    {
    }

    Match find();

private:
    void follow(Thread start, std::vector<Thread> &into);
    void advance(char32_t code);

    const Pattern &m_pattern;
    std::string_view m_text;
    std::vector<Thread> m_current;
    std::vector<Thread> m_next;
    std::vector<Thread> m_open;    // work list of follow()
    std::vector<size_t> m_visited; // round in which a step was reached last
    size_t m_round = 0;
    size_t m_position = 0;
    Match m_best;
};

// Adds the character steps reachable without reading anything; notes a match.
// A list of its own instead of recursion, which a long row of groups would make deep.
void Pattern::Matcher::follow(Thread start, std::vector<Thread> &into)
{
    m_open.assign(1, start);
    while (!m_open.empty()) {
        const Thread thread = m_open.back();
        m_open.pop_back();
        if (m_visited[thread.step] == m_round)
            continue;
        m_visited[thread.step] = m_round;
        const Step &step = m_pattern.m_steps[thread.step];
        const Thread onward{thread.step + static_cast<size_t>(step.first), thread.begin};
        if (step.kind == Kind::Any || step.kind == Kind::Set) {
            into.push_back(thread);
        } else if (step.kind == Kind::Done) {
            // A later match from the same beginning is longer; an earlier beginning always wins.
            if (!m_best.found() || thread.begin <= m_best.begin)
                m_best = {thread.begin, m_position};
        } else if (step.kind == Kind::Split) {
            m_open.push_back({thread.step + static_cast<size_t>(step.second), thread.begin});
            m_open.push_back(onward);
        } else if (step.kind == Kind::Jump || (step.kind == Kind::LineStart && m_position == 0) ||
                   (step.kind == Kind::LineEnd && m_position == m_text.size())) {
            m_open.push_back(onward);
        }
    }
}

// Threads that began behind the best match can no longer win and are dropped.
void Pattern::Matcher::advance(char32_t code)
{
    ++m_round;
    m_next.clear();
    for (const Thread &thread : m_current) {
        const Step &step = m_pattern.m_steps[thread.step];
        const bool tooLate = m_best.found() && thread.begin > m_best.begin;
        const bool fits = step.kind == Kind::Any ||
                          m_pattern.m_sets[static_cast<size_t>(step.set)].contains(code);
        if (fits && !tooLate)
            follow({thread.step + 1, thread.begin}, m_next);
    }
    m_current.swap(m_next);
}

Match Pattern::Matcher::find()
{
    m_round = 1;
    follow({0, 0}, m_current);
    while (m_position < m_text.size() && !(m_current.empty() && m_best.found())) {
        const Character character = characterAt(m_text, m_position);
        m_position += character.length;
        advance(character.code);
        // A new thread at each position, until a match fixes the leftmost beginning.
        if (!m_best.found())
            follow({0, m_position}, m_current);
    }
    return m_best;
}

Match Pattern::find(std::string_view text) const
{
    return Matcher(*this, text).find();
}

namespace {

// Whether a set such as [a-z] or [!0] at `at` takes the character; moves past it. An unclosed
// bracket stands for itself.
// A bracket that comes first is meant literally, hence the search from the third character on.
bool globSet(std::string_view glob, size_t &at, char32_t code)
{
    const size_t close = glob.find(']', at + 2);
    if (close == std::string_view::npos)
        return glob[at++] == static_cast<char>(code) && code < 0x80;
    size_t i = at + 1;
    const bool negated = glob[i] == '!';
    i += negated ? 1 : 0;
    bool inside = false;
    while (i < close) {
        const Character low = characterAt(glob, i);
        Character high = low;
        i += low.length;
        if (i + 1 < close && glob[i] == '-') {
            high = characterAt(glob, i + 1);
            i += 1 + high.length;
        }
        inside = inside || (code >= low.code && code <= high.code);
    }
    at = close + 1;
    return inside != negated;
}

// Whether one element of the glob other than "*" takes the character; moves past the element.
bool globElement(std::string_view glob, size_t &at, char32_t code)
{
    if (glob[at] == '?') {
        ++at;
        return true;
    }
    if (glob[at] == '[')
        return globSet(glob, at, code);
    if (glob[at] == '\\' && at + 1 < glob.size())
        ++at;
    const Character literal = characterAt(glob, at);
    at += literal.length;
    return literal.code == code;
}

} // namespace

bool matchesGlob(std::string_view text, std::string_view glob)
{
    size_t inText = 0;
    size_t inGlob = 0;
    // Where to resume when what follows the last star fails.
    size_t starText = 0;
    size_t starGlob = std::string_view::npos;
    while (inText < text.size()) {
        const Character character = characterAt(text, inText);
        if (inGlob < glob.size() && glob[inGlob] == '*') {
            starGlob = ++inGlob;
            starText = inText;
            continue;
        }
        if (inGlob < glob.size() && globElement(glob, inGlob, character.code)) {
            inText += character.length;
            continue;
        }
        if (starGlob == std::string_view::npos)
            return false;
        // The last star takes one character more; earlier stars never need to change.
        starText += characterAt(text, starText).length;
        inText = starText;
        inGlob = starGlob;
    }
    while (inGlob < glob.size() && glob[inGlob] == '*')
        ++inGlob;
    return inGlob == glob.size();
}

} // namespace mel
