// SPDX-License-Identifier: MIT
#include "standin/mel/nodes.h"

#include "standin/mel/number.h"
#include "standin/mel/runtime.h"
#include "standin/mel/withoperand.h"

#include <algorithm>

namespace mel::nodes {

namespace {

// Two operands, for every kind of result.
// The left operand is always evaluated before the right one.
template <typename Base>
class Pair : public Base
{
public:
    template <typename... BaseArguments>
    Pair(ExpressionPointer left, ExpressionPointer right, BaseArguments... arguments)
        : Base(arguments...), m_left(std::move(left)), m_right(std::move(right))
    {
        this->depth = std::max(m_left->depth, m_right->depth) + 1;
    }

protected:
    ExpressionPointer m_left;
    ExpressionPointer m_right;
};

template <Operator op>

class IntArithmetic : public Pair<IntExpression>
{
public:
    using Pair::Pair;
    int evalInt(Frame &frame) const override
    {
        const int a = m_left->evalInt(frame);
        const int b = m_right->evalInt(frame);
        if constexpr (op == Operator::Add)
            return addInts(a, b);
        if constexpr (op == Operator::Subtract)
            return subtractInts(a, b);
        if constexpr (op == Operator::Multiply)
            return multiplyInts(a, b);
        if constexpr (op == Operator::Divide)
            return divideInts(a, b);
        return remainderOfInts(a, b);
    }
};

// Also of an int and a float: each operand gives a double in its own way.
template <Operator op>
class FloatArithmetic : public Pair<FloatExpression>
{
public:
    using Pair::Pair;
    double evalFloat(Frame &frame) const override
    {
        const double a = m_left->evalFloat(frame);
        const double b = m_right->evalFloat(frame);
        if constexpr (op == Operator::Add)
            return a + b;
        if constexpr (op == Operator::Subtract)
            return a - b;
        if constexpr (op == Operator::Multiply)
            return a * b;
        if constexpr (op == Operator::Divide)
            return divideFloats(a, b);
        return remainderOfFloats(a, b);
    }
};

template <Operator op>
class IntComparison : public Pair<IntExpression>
{
public:
    using Pair::Pair;
    int evalInt(Frame &frame) const override
    {
        const int a = m_left->evalInt(frame);
        return compare(op, a, m_right->evalInt(frame));
    }
};

// Ints on one side become floats, which hold every int exactly.
template <Operator op>
class FloatComparison : public Pair<IntExpression>
{
public:
    using Pair::Pair;
    int evalInt(Frame &frame) const override
    {
        const double a = m_left->evalFloat(frame);
        return compare(op, a, m_right->evalFloat(frame));
    }
};

// Constants and plain variables are compared where they are, but a variable on the left only when
// nothing on the right could change it meanwhile.
// Comparing texts is what loops over names do most, and copying them would cost more.
class StringComparison : public Pair<IntExpression>
{
public:
    StringComparison(Operator op, ExpressionPointer left, ExpressionPointer right)
        : Pair(std::move(left), std::move(right)), m_op(op)
    {
    }
    int evalInt(Frame &frame) const override
    {
        const Value *left = inPlace(*m_left, frame);
        const Value *right = inPlace(*m_right, frame);
        if (left && right)
            return compare(m_op, as<std::string>(*left), as<std::string>(*right));
        const std::string copy = m_left->asText(frame);
        return right ? compare(m_op, copy, as<std::string>(*right))
                     : compare(m_op, copy, m_right->asText(frame));
    }

private:
    static const Value *inPlace(const Expression &operand, Frame &frame)
    {
        const Value *constant = operand.constant();
        return constant ? constant : operand.variable(frame);
    }

    Operator m_op;
};

// Takes over the left text, so that a chain of additions copies it once.
class Concatenation : public Pair<Expression>
{
public:
    Concatenation(ExpressionPointer left, ExpressionPointer right)
        : Pair(std::move(left), std::move(right), Type::String)
    {
    }
    Value eval(Frame &frame) const override
    {
        // Copied before the right side runs, which may change the variable it came from.
        std::string text = m_left->asText(frame);
        text += m_right->asText(frame);
        frame.runtime.checkTextLength(text.size());
        return text;
    }
};

// Whatever has no node of its own: vectors, matrices, and types known only while running.
// Types are looked at on every run; operands that are known while compiling have faster nodes.
class GeneralOperation : public Pair<Expression>
{
public:
    GeneralOperation(Operator op, ExpressionPointer left, ExpressionPointer right, Type type)
        : Pair(std::move(left), std::move(right), type), m_op(op)
    {
    }
    Value eval(Frame &frame) const override
    {
        const Value left = m_left->eval(frame);
        Value value = apply(m_op, left, m_right->eval(frame), frame.runtime);
        if (const std::string *text = std::get_if<std::string>(&value))
            frame.runtime.checkTextLength(text->size());
        return value;
    }

private:
    Operator m_op;
};

// The right side is only evaluated when it decides.
class And : public Pair<IntExpression>
{
public:
    using Pair::Pair;
    int evalInt(Frame &frame) const override
    {
        return m_left->evalInt(frame) && m_right->evalInt(frame);
    }
};

class Or : public Pair<IntExpression>
{
public:
    using Pair::Pair;
    int evalInt(Frame &frame) const override
    {
        return m_left->evalInt(frame) || m_right->evalInt(frame);
    }
};

// On a condition, so any number but 0 gives 0.
class Not : public WithOperand<IntExpression>
{
public:
    using WithOperand::WithOperand;

    int evalInt(Frame &frame) const override { return !m_operand->evalInt(frame); }
};

// Its type is the operand's; numbers that are constant never get here.
class Negation : public WithOperand<Expression>
{
public:
    Negation(ExpressionPointer operand, Type type) : WithOperand(std::move(operand), type) {}
    Value eval(Frame &frame) const override
    {
        return mel::negate(m_operand->eval(frame), frame.runtime);
    }
};

// Both branches have the same type already.
class Conditional : public Pair<Expression>
{
public:
    Conditional(ExpressionPointer condition, ExpressionPointer yes, ExpressionPointer no, Type type)
        : Pair(std::move(yes), std::move(no), type), m_condition(std::move(condition))
    {
        depth = std::max(depth, m_condition->depth + 1);
    }
    Value eval(Frame &frame) const override { return chosen(frame).eval(frame); }
    int evalInt(Frame &frame) const override { return chosen(frame).evalInt(frame); }
    double evalFloat(Frame &frame) const override { return chosen(frame).evalFloat(frame); }
    void evalText(Frame &frame, std::string &text) const override
    {
        chosen(frame).evalText(frame, text);
    }

private:
    const Expression &chosen(Frame &frame) const
    {
        return m_condition->evalInt(frame) ? *m_left : *m_right;
    }

    ExpressionPointer m_condition;
};

// One instance per operator, so that the operator costs nothing while running.
template <template <Operator> class Node>
ExpressionPointer arithmeticNode(Operator op, ExpressionPointer left, ExpressionPointer right)
{
    switch (op) {
    case Operator::Add:
        return std::make_unique<Node<Operator::Add>>(std::move(left), std::move(right));
    case Operator::Subtract:
        return std::make_unique<Node<Operator::Subtract>>(std::move(left), std::move(right));
    case Operator::Multiply:
        return std::make_unique<Node<Operator::Multiply>>(std::move(left), std::move(right));
    case Operator::Divide:
        return std::make_unique<Node<Operator::Divide>>(std::move(left), std::move(right));
    default:
        return std::make_unique<Node<Operator::Remainder>>(std::move(left), std::move(right));
    }
}

template <template <Operator> class Node>
ExpressionPointer comparisonNode(Operator op, ExpressionPointer left, ExpressionPointer right)
{
    switch (op) {
    case Operator::Less:
        return std::make_unique<Node<Operator::Less>>(std::move(left), std::move(right));
    case Operator::LessEqual:
        return std::make_unique<Node<Operator::LessEqual>>(std::move(left), std::move(right));
    case Operator::Greater:
        return std::make_unique<Node<Operator::Greater>>(std::move(left), std::move(right));
    case Operator::GreaterEqual:
        return std::make_unique<Node<Operator::GreaterEqual>>(std::move(left), std::move(right));
    case Operator::Equal:
        return std::make_unique<Node<Operator::Equal>>(std::move(left), std::move(right));
    default:
        return std::make_unique<Node<Operator::NotEqual>>(std::move(left), std::move(right));
    }
}

// One node for each pair of types that scripts compare often.
ExpressionPointer comparison(Operator op, ExpressionPointer left, ExpressionPointer right)
{
    const Type a = left->type();
    const Type b = right->type();
    if (a == Type::Int && b == Type::Int)
        return comparisonNode<IntComparison>(op, std::move(left), std::move(right));
    if (isNumber(a) && isNumber(b))
        return comparisonNode<FloatComparison>(op, std::move(left), std::move(right));
    if (a == Type::String && b == Type::String)
        return std::make_unique<StringComparison>(op, std::move(left), std::move(right));
    return std::make_unique<GeneralOperation>(op, std::move(left), std::move(right), Type::Int);
}

} // namespace

// `type` is resultType() of the two; what has no meaning has been refused before.
ExpressionPointer binary(Operator op, ExpressionPointer left, ExpressionPointer right, Type type)
{
    if (isComparison(op))
        return comparison(op, std::move(left), std::move(right));
    if (type == Type::Int)
        return arithmeticNode<IntArithmetic>(op, std::move(left), std::move(right));
    if (type == Type::Float && isNumber(left->type()) && isNumber(right->type()))
        return arithmeticNode<FloatArithmetic>(op, std::move(left), std::move(right));
    if (type == Type::String)
        return std::make_unique<Concatenation>(std::move(left), std::move(right));
    return std::make_unique<GeneralOperation>(op, std::move(left), std::move(right), type);
}

// A literal -5 becomes a constant, which a global variable may start with.
ExpressionPointer negate(ExpressionPointer operand)
{
    if (const Value *known = operand->constant(); known && isNumber(typeOf(*known))) {
        const int *whole = std::get_if<int>(known);
        return whole ? constant(subtractInts(0, *whole)) : constant(-std::get<double>(*known));
    }
    const Type type = operand->type();
    return std::make_unique<Negation>(std::move(operand), type);
}

ExpressionPointer logicalNot(ExpressionPointer condition)
{
    return std::make_unique<Not>(std::move(condition));
}

ExpressionPointer logicalAnd(ExpressionPointer left, ExpressionPointer right)
{
    return std::make_unique<And>(std::move(left), std::move(right));
}

ExpressionPointer logicalOr(ExpressionPointer left, ExpressionPointer right)
{
    return std::make_unique<Or>(std::move(left), std::move(right));
}

ExpressionPointer conditional(ExpressionPointer condition, ExpressionPointer yes,
                              ExpressionPointer no, Type type)
{
    return std::make_unique<Conditional>(std::move(condition), std::move(yes), std::move(no), type);
}

} // namespace mel::nodes
