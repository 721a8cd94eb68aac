// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/parser.h"

namespace mel {

// One level of nesting in the text; refuses to go beyond the limit.
// Alive in every rule that can meet itself again, so that hostile text such as a million "(" ends
// in an error instead of a crash.
class Parser::Level
{
public:
    explicit Level(Parser &parser);
    ~Level();
    Level(const Level &) = delete;
    Level &operator=(const Level &) = delete;

private:
    Parser &m_parser;
};

} // namespace mel
