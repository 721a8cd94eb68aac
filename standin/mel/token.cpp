// SPDX-License-Identifier: MIT
#include "standin/mel/token.h"

#include <algorithm>
#include <iterator>

namespace mel {

namespace {

// catch, catchQuiet and source are not among them, as commands of these names exist as well.
const char *const keywords[] = {
    "break",  "case",   "continue", "default", "do",     "else",  "false", "float", "for",
    "global", "if",     "in",       "int",     "matrix", "no",    "off",   "on",    "proc",
    "return", "string", "switch",   "true",    "vector", "while", "yes",
};

} // namespace

bool isKeyword(const std::string &word)
{
    return std::find(std::begin(keywords), std::end(keywords), word) != std::end(keywords);
}

// The spellings are those of typeName(), so the two cannot drift apart.
Type typeWord(const std::string &word)
{
    for (const Type type : {Type::Int, Type::Float, Type::String, Type::Vector, Type::Matrix}) {
        if (word == typeName(type))
            return type;
    }
    return Type::Void;
}

} // namespace mel
