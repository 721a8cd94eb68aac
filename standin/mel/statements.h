// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/operators.h"
#include "standin/mel/statement.h"

#include <utility>

// Makers of statement nodes. Conditions are ints already; null stands for "nothing there".
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
StatementPointer loop(Loop loop, int line);
StatementPointer doLoop(StatementPointer body, ExpressionPointer condition, int line);
// The elements become the variable's type.
StatementPointer forIn(Storage variable, Type type, ExpressionPointer array, StatementPointer body,
                       int line);

struct Case
{
    ExpressionPointer label; // null: default
    StatementList body;
};
StatementPointer choice(ExpressionPointer value, std::vector<Case> cases, int line);

StatementPointer jump(Flow flow, int line);
StatementPointer returned(ExpressionPointer value, int line);

} // namespace mel::statements
