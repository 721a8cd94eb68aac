// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/frame.h"

#include <memory>
#include <vector>

namespace mel {

// A node of the checked tree. Its static type selects the evaluation that costs least: callers use
// evalInt() on ints, evalFloat() on numbers, evalText() on strings and eval() on the rest.
// A node is built once, by the Builder, and, caches aside, never changes: a text may run again
// while it is running already (recursion, nested execution), so whatever belongs to one run lives
// in the Frame.
class Expression
{
public:
    explicit Expression(Type type) : m_type(type) {}
    Expression(const Expression &) = delete;
    Expression &operator=(const Expression &) = delete;
    virtual ~Expression() = default;

    Type type() const { return m_type; }
    bool isStatic() const { return m_type != Type::Dynamic; }

    // The value; void when there is none. Operators evaluate from left to right. Throws
    // RuntimeError.
    virtual Value eval(Frame &frame) const = 0;
    // The value as an int or float, converted where the node has another type. The defaults go
    // through eval() and throw RuntimeError for what is no number.
    virtual int evalInt(Frame &frame) const;
    virtual double evalFloat(Frame &frame) const;
    // The text of a node that is a string, put into the memory of `text`. That is no variable's:
    // the node may read all of them.
    virtual void evalText(Frame &frame, std::string &text) const;
    // The value in the way that costs least, void when there is none; `place` is no variable
    // either.
    void evalInto(Value &place, Frame &frame) const;
    // The same for the last time: a variable that dies with the frame need not be copied.
    virtual void evalLast(Value &place, Frame &frame) const { evalInto(place, frame); }
    // For its effect only.
    virtual void run(Frame &frame) const { eval(frame); }

    // The variable's own value where the expression is a plain variable, else null.
    virtual Value *variable(Frame &) const { return nullptr; }
    // The value when it is known while compiling, else null.
    virtual const Value *constant() const { return nullptr; }
    // Whether evaluating needs no variable and no call.
    virtual bool isConstant() const { return constant() != nullptr; }

    // The value in the form that print writes; arrays and void have none.
    std::string asText(Frame &frame) const;

    // Levels of the tree below this node, which evaluation spends stack on.
    int depth = 1;

protected:
    Type m_type;
};

// Each node owns its operands.
using ExpressionPointer = std::unique_ptr<Expression>;
using ExpressionList = std::vector<ExpressionPointer>;

// A node that computes an int without ever making a Value of it, as counting loops need.
class IntExpression : public Expression
{
public:
    IntExpression() : Expression(Type::Int) {}
    Value eval(Frame &frame) const override { return evalInt(frame); }
    double evalFloat(Frame &frame) const override { return evalInt(frame); }
    void run(Frame &frame) const override { evalInt(frame); }
    int evalInt(Frame &frame) const override = 0;
};

// The same for a float; read as an int it is truncated.
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
    // A variable as a whole, which variable() can then give the place of.
    virtual bool isPlainVariable() const { return false; }
    virtual Index locate(Frame &) const { return {}; }
    // The value at the place that locate() found. Neither call evaluates anything again.
    virtual Value load(Frame &frame, Index index) const = 0;
    // `value` has this target's type already.
    virtual void store(Frame &frame, Index index, Value value) const = 0;
    // Stores the value of an expression of this target's type.
    virtual void assign(Frame &frame, Index index, const Expression &expression) const;
};

} // namespace mel
