// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/parser.h"

namespace mel {

// One level of nesting in the text; refuses to go beyond the limit.
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
