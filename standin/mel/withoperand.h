// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/expression.h"

#include <utility>

namespace mel::nodes {

// The base of nodes with a single operand, for every kind of result.
// Owns the operand; what else a node needs goes on to its base.
template <typename Base>
class WithOperand : public Base
{
public:
    template <typename... BaseArguments>
    explicit WithOperand(ExpressionPointer operand, BaseArguments... arguments)
        : Base(arguments...), m_operand(std::move(operand))
    {
        this->depth = m_operand->depth + 1;
    }

protected:
    ExpressionPointer m_operand;
};

} // namespace mel::nodes
