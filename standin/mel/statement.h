// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/expression.h"

namespace mel {

// Why a statement ended, for the loops, switches and calls around it.
enum class Flow { Normal, Break, Continue, Return };

// A statement of the checked tree, owned by the block, text or procedure it stands in. Like an
// expression it holds nothing that belongs to one run.
class Statement
{
public:
    explicit Statement(int line) : m_line(line) {}
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;
    virtual ~Statement() = default;

    // Runs the statement, counted as one step.
    Flow execute(Frame &frame) const;
    // The same, for the last statement of a text: its value, void when it has none.
    Value evaluate(Frame &frame) const;

protected:
    // Marks the place and counts a step; loops call it once a round.
    void step(Frame &frame) const;
    // What the statement does, its own step counted already.
    virtual Flow run(Frame &frame) const = 0;
    // Runs it for its value; statements other than expressions and declarations have none.
    virtual Value value(Frame &frame) const;

private:
    // Of the first token, from 1; what run-time errors name.
    int m_line;
};

using StatementPointer = std::unique_ptr<Statement>;
using StatementList = std::vector<StatementPointer>;

} // namespace mel
