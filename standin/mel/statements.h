// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/operators.h"
#include "standin/mel/statement.h"

#include <utility>

// Makers of statement nodes. Conditions are ints already; null stands for "nothing there".
// `line` is that of the statement's first token, from 1.
namespace mel::statements {

StatementPointer expression(ExpressionPointer expression, int line);
// The actions of a declaration, in order; its value is that of the last one.
StatementPointer declaration(ExpressionList actions, int line);
StatementPointer block(StatementList statements, int line);

struct Branch
{
    ExpressionPointer condition; // null: else
    StatementPointer body;
};
StatementPointer branches(std::vector<Branch> branches, int line);

struct Loop
{
    StatementPointer start;
    ExpressionPointer condition;
    ExpressionList steps;
    StatementPointer body;
};
// for and while: a missing condition is true, and the steps follow each round that goes on.
StatementPointer loop(Loop loop, int line);
// The body runs before the condition is asked for the first time.
StatementPointer doLoop(StatementPointer body, ExpressionPointer condition, int line);
// The elements become the variable's type.
StatementPointer forIn(Storage variable, Type type, ExpressionPointer array, StatementPointer body,
                       int line);

struct Case
{
    ExpressionPointer label; // null: default
    StatementList body;
};
// switch: falls through from the chosen case on. The default may stand anywhere.
StatementPointer choice(ExpressionPointer value, std::vector<Case> cases, int line);

// break and continue, and return without a value.
StatementPointer jump(Flow flow, int line);
StatementPointer returned(ExpressionPointer value, int line);

} // namespace mel::statements
