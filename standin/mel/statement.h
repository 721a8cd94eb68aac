// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/expression.h"

namespace mel {

enum class Flow { Normal, Break, Continue, Return };

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
    virtual Flow run(Frame &frame) const = 0;
    virtual Value value(Frame &frame) const;

private:
    int m_line;
};

using StatementPointer = std::unique_ptr<Statement>;
using StatementList = std::vector<StatementPointer>;

} // namespace mel
