// SPDX-License-Identifier: MIT
#include "standin/mel/functions.h"

#include "standin/mel/number.h"
#include "standin/mel/pattern.h"
#include "standin/mel/runtime.h"
#include "standin/mel/utf8.h"

#include <algorithm>

namespace mel {

namespace {

// As the language defines it: 1 for numbers, 3 for a vector.
struct SizeOf
{
    int operator()(std::monostate) const { return 0; }
    int operator()(int) const { return 1; }
    int operator()(double) const { return 1; }
    int operator()(const Vector &) const { return 3; }
    int operator()(const Matrix &matrix) const { return static_cast<int>(matrix.elements.size()); }
    int operator()(const std::string &text) const
    {
        return static_cast<int>(countCharacters(text));
    }
    template <typename Element>
    int operator()(const Array<Element> &array) const
    {
        return static_cast<int>(array.size());
    }
};

// Characters of a text, elements of an array.
Value size(const Arguments &call)
{
    return std::visit(SizeOf(), call.value(0));
}

// UTF-8 bytes, where size() counts characters.
Value sizeBytes(const Arguments &call)
{
    return static_cast<int>(call.text(0).size());
}

// By bytes, never by the rules of a locale.
Value strcmp(const Arguments &call)
{
    const int order = call.text(0).compare(call.text(1));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

// Positions count from 1, both ends included.
Value substring(const Arguments &call)
{
    const int first = call.integer(1);
    const int last = call.integer(2);
    if (first < 1 || first > last)
        return std::string();
    return std::string(
        characters(call.text(0), static_cast<size_t>(first) - 1, static_cast<size_t>(last)));
}

// The first match only.
// Deliberate: the replacement is literal text, without references to groups.
Value substitute(const Arguments &call)
{
    const std::string &text = call.text(1);
    const Match match = Pattern(call.text(0)).find(text);
    if (!match.found())
        return text;
    call.runtime.checkTextLength(text.size() + call.text(2).size());
    return text.substr(0, match.begin) + call.text(2) + text.substr(match.end);
}

Value match(const Arguments &call)
{
    const std::string &text = call.text(1);
    const Match match = Pattern(call.text(0)).find(text);
    return match.found() ? text.substr(match.begin, match.end - match.begin) : std::string();
}

// The text comes first here, the pattern second; match has them the other way round.
Value gmatch(const Arguments &call)
{
    return matchesGlob(call.text(0), call.text(1)) ? 1 : 0;
}

// Any character separates; separators in a row make no empty tokens.
std::vector<std::string> split(const std::string &text, const std::string &separators)
{
    std::vector<std::string> tokens;
    for (size_t begin = 0;
         (begin = text.find_first_not_of(separators, begin)) != std::string::npos;) {
        // npos is beyond every size, so min cuts it to the end.
        const size_t end = std::min(text.find_first_of(separators, begin), text.size());
        tokens.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return tokens;
}

// Without separators, blanks of every kind separate.
Value tokenize(const Arguments &call)
{
    const bool separated = call.count() == 3;
    // Cut before the buffer is touched: it may hold the text as well.
    std::vector<std::string> tokens =
        split(call.text(0), separated ? call.text(1) : std::string(" \t\r\n\f\v"));
    const int count = static_cast<int>(tokens.size());
    call.strings(call.count() - 1) = std::move(tokens);
    return count;
}

// Letters beyond ASCII stay as they are.
std::string mapAscii(std::string text, char from, char to, int by)
{
    for (char &c : text) {
        if (c >= from && c <= to)
            c = static_cast<char>(c + by);
    }
    return text;
}

Value toupper(const Arguments &call)
{
    return mapAscii(call.text(0), 'a', 'z', 'A' - 'a');
}

Value tolower(const Arguments &call)
{
    return mapAscii(call.text(0), 'A', 'Z', 'a' - 'A');
}

Value encodeString(const Arguments &call)
{
    std::string encoded;
    for (const char c : call.text(0)) {
        // The two literals run parallel: what to escape, and the letter that stands for it.
        const size_t special = std::string_view("\"\\\n\t\r").find(c);
        if (special == std::string_view::npos)
            encoded += c;
        else
            encoded += std::string("\\") + "\"\\ntr"[special];
    }
    return encoded;
}

const Function rows[] = {
    {"size", "i:a", size},
    {"sizeBytes", "i:s", sizeBytes},
    {"strcmp", "i:ss", strcmp},
    {"substring", "s:sii", substring},
    {"substitute", "s:sss", substitute},
    {"match", "s:ss", match},
    {"gmatch", "i:ss", gmatch},
    {"tokenize", "i:sS", tokenize},
    {"tokenize", "i:ssS", tokenize},
    {"toupper", "s:s", toupper},
    {"tolower", "s:s", tolower},
    {"encodeString", "s:s", encodeString},
};

} // namespace

FunctionTable stringFunctions()
{
    return {rows, std::size(rows)};
}

} // namespace mel
