// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/frame.h"

#include <memory>
#include <vector>

namespace mel {

// A node of the checked tree. Its static type selects the evaluation that costs least: callers use
// evalInt() on ints, evalFloat() on numbers and eval() on the rest.
class Expression
{
public:
    explicit Expression(Type type) : m_type(type) {}
    Expression(const Expression &) = delete;
    Expression &operator=(const Expression &) = delete;
    virtual ~Expression() = default;

    Type type() const { return m_type; }
    bool isStatic() const { return m_type != Type::Dynamic; }

    virtual Value eval(Frame &frame) const = 0;
    virtual int evalInt(Frame &frame) const;
    virtual double evalFloat(Frame &frame) const;
    // For its effect only.
    virtual void run(Frame &frame) const { eval(frame); }

    // The variable's own value where the expression is a plain variable, else null.
    virtual Value *variable(Frame &) const { return nullptr; }
    // The value when it is known while compiling, else null.
    virtual const Value *constant() const { return nullptr; }
    // Whether evaluating needs no variable and no call.
    virtual bool isConstant() const { return constant() != nullptr; }

    // Levels of the tree below this node, which evaluation spends stack on.
    int depth = 1;

protected:
    Type m_type;
};

using ExpressionPointer = std::unique_ptr<Expression>;
using ExpressionList = std::vector<ExpressionPointer>;

class IntExpression : public Expression
{
public:
    IntExpression() : Expression(Type::Int) {}
    Value eval(Frame &frame) const override { return evalInt(frame); }
    double evalFloat(Frame &frame) const override { return evalInt(frame); }
    void run(Frame &frame) const override { evalInt(frame); }
    int evalInt(Frame &frame) const override = 0;
};

class FloatExpression : public Expression
{
public:
    FloatExpression() : Expression(Type::Float) {}
    Value eval(Frame &frame) const override { return evalFloat(frame); }
    int evalInt(Frame &frame) const override;
    void run(Frame &frame) const override { evalFloat(frame); }
    double evalFloat(Frame &frame) const override = 0;
};

// Something assignable. The indices are evaluated once, by locate().
class Target : public Expression
{
public:
    struct Index
    {
        int row = 0;
        int column = 0;
    };

    using Expression::Expression;
    Value eval(Frame &frame) const override { return load(frame, locate(frame)); }
    virtual bool isPlainVariable() const { return false; }
    virtual Index locate(Frame &) const { return {}; }
    virtual Value load(Frame &frame, Index index) const = 0;
    // `value` has this target's type already.
    virtual void store(Frame &frame, Index index, Value value) const = 0;
};

} // namespace mel
