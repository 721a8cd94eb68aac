// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mel {

// Bytes [begin, end) of a text; begin is npos when nothing was found.
struct Match
{
    size_t begin = std::string_view::npos;
    size_t end = 0;

    bool found() const { return begin != std::string_view::npos; }
};

// A regular expression of: . * + ^ $ \ [set] [^set] ( ). All ways through it are followed at once,
// so the time is linear in text times pattern whatever they are.
// The price is that groups capture nothing, which no caller needs.
class Pattern
{
public:
    // Throws RuntimeError when the expression is malformed.
    explicit Pattern(std::string_view expression);

    // The leftmost match, the longest one there.
    Match find(std::string_view text) const;

private:
    enum class Kind { Any, Set, Split, Jump, LineStart, LineEnd, Done };
    // Offsets are relative to the step, so that a part can be moved as a whole.
    struct Step
    {
        Kind kind = Kind::Done;
        // Index into m_sets, of a Set step only.
        int set = 0;
        int first = 1; // preferred way on
        int second = 0;
    };
    struct Set
    {
        bool negated = false;
        std::vector<std::pair<char32_t, char32_t>> ranges;
        bool contains(char32_t code) const;
    };
    // One way through the expression: where it is, and the byte at which it began.
    struct Thread
    {
        size_t step;
        size_t begin;
    };
    class Compiler;
    class Matcher;

    std::vector<Step> m_steps;
    std::vector<Set> m_sets;
};

// Whether the whole text fits a pattern of: * ? [set] [!set] and \ before a literal character.
// Takes no exponential time either: a mismatch only ever moves the last star.
bool matchesGlob(std::string_view text, std::string_view glob);

} // namespace mel
