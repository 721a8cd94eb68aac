// SPDX-License-Identifier: MIT
#include "standin/mel/nodes.h"

#include "standin/mel/number.h"
#include "standin/mel/runtime.h"

#include <algorithm>

namespace mel::nodes {

namespace {

// The int, float or text of a plain variable, to be changed in place.
// A RuntimeError when the variable holds another type.
template <typename Held>
Held &held(const Target &target, Frame &frame)
{
    return as<Held>(*target.variable(frame));
}

// A target and the value for it, for every kind of result.
template <typename Base>
class TargetAndValue : public Base
{
public:
    template <typename... BaseArguments>
    TargetAndValue(std::unique_ptr<Target> target, ExpressionPointer value,
                   BaseArguments... arguments)
        : Base(arguments...), m_target(std::move(target)), m_value(std::move(value))
    {
        this->depth = std::max(m_target->depth, m_value->depth) + 1;
    }

protected:
    std::unique_ptr<Target> m_target;
    ExpressionPointer m_value;
};

// Numbers in plain variables, the usual case in loops, never pass through a Value.
class AssignInt : public TargetAndValue<IntExpression>
{
public:
    using TargetAndValue::TargetAndValue;

    int evalInt(Frame &frame) const override
    {
        const int value = m_value->evalInt(frame);
        return held<int>(*m_target, frame) = value;
    }
};

class AssignFloat : public TargetAndValue<FloatExpression>
{
public:
    using TargetAndValue::TargetAndValue;

    double evalFloat(Frame &frame) const override
    {
        const double value = m_value->evalFloat(frame);
        return held<double>(*m_target, frame) = value;
    }
};

// The value of an assignment is what was stored, in the type of the target.
// Indices are evaluated before the value: $a[$i++] = $i stores the larger number.
class Assign : public TargetAndValue<Expression>
{
public:
    Assign(std::unique_ptr<Target> target, ExpressionPointer value, Type type)
        : TargetAndValue(std::move(target), std::move(value), type)
    {
    }
    Value eval(Frame &frame) const override
    {
        const Target::Index index = m_target->locate(frame);
        m_target->assign(frame, index, *m_value);
        // Read back, because storing may have changed it: a matrix keeps its declared size.
        return m_target->load(frame, index);
    }
    // Without the copy that the value of the assignment would be.
    void run(Frame &frame) const override
    {
        m_target->assign(frame, m_target->locate(frame), *m_value);
    }
};

// The indices are evaluated once, before the value.
class CompoundAssign : public TargetAndValue<Expression>
{
public:
    CompoundAssign(Operator op, std::unique_ptr<Target> target, ExpressionPointer value, Type type)
        : TargetAndValue(std::move(target), std::move(value), type), m_op(op)
    {
    }
    Value eval(Frame &frame) const override
    {
        const Target::Index index = m_target->locate(frame);
        const Value right = m_value->eval(frame);
        Value result = apply(m_op, m_target->load(frame, index), right, frame.runtime);
        // Doubling a text in a loop reaches any memory within a few dozen rounds.
        if (const std::string *text = std::get_if<std::string>(&result))
            frame.runtime.checkTextLength(text->size());
        result = mel::convert(std::move(result), type(), frame.runtime);
        m_target->store(frame, index, result);
        return result;
    }

private:
    Operator m_op;
};

// Text appended in place, so that building a long text piece by piece stays linear.
class Append : public TargetAndValue<Expression>
{
public:
    Append(std::unique_ptr<Target> target, ExpressionPointer value)
        : TargetAndValue(std::move(target), std::move(value), Type::String)
    {
    }
    Value eval(Frame &frame) const override
    {
        run(frame);
        return held<std::string>(*m_target, frame);
    }
    void run(Frame &frame) const override
    {
        // Evaluated before the text is touched, which it may append to as well.
        const std::string right = m_value->asText(frame);
        std::string &text = held<std::string>(*m_target, frame);
        frame.runtime.checkTextLength(text.size() + right.size());
        text += right;
    }
};

// += and -= on an int variable.
class AddToInt : public TargetAndValue<IntExpression>
{
public:
    AddToInt(std::unique_ptr<Target> target, ExpressionPointer value, int sign)
        : TargetAndValue(std::move(target), std::move(value)), m_sign(sign)
    {
    }
    int evalInt(Frame &frame) const override
    {
        // A minus sign wraps like any int, hence no plain negation.
        const int by = multiplyInts(m_value->evalInt(frame), m_sign);
        int &number = held<int>(*m_target, frame);
        return number = addInts(number, by);
    }

private:
    int m_sign;
};

// ++ and -- on an int variable.
class IncrementInt : public IntExpression
{
public:
    IncrementInt(std::unique_ptr<Target> target, int by, bool prefix)
        : m_target(std::move(target)), m_by(by), m_prefix(prefix)
    {
    }
    int evalInt(Frame &frame) const override
    {
        int &number = held<int>(*m_target, frame);
        const int before = number;
        number = addInts(number, m_by);
        return m_prefix ? number : before;
    }

private:
    std::unique_ptr<Target> m_target;
    int m_by;
    bool m_prefix;
};

// On floats, elements and dynamic variables.
class Increment : public Expression
{
public:
    Increment(std::unique_ptr<Target> target, int by, bool prefix)
        : Expression(target->type()), m_target(std::move(target)), m_by(by), m_prefix(prefix)
    {
        depth = m_target->depth + 1;
    }
    Value eval(Frame &frame) const override
    {
        const Target::Index index = m_target->locate(frame);
        const Value before = m_target->load(frame, index);
        if (!isNumber(typeOf(before)))
            throw RuntimeError(illegalOperation(m_by > 0 ? "++" : "--", typeOf(before)));
        Value after = apply(Operator::Add, before, m_by, frame.runtime);
        m_target->store(frame, index, after);
        return m_prefix ? after : before;
    }

private:
    std::unique_ptr<Target> m_target;
    int m_by;
    bool m_prefix;
};

class Catching : public IntExpression
{
public:
    Catching(ExpressionPointer operand, bool quiet) : m_operand(std::move(operand)), m_quiet(quiet)
    {
        depth = m_operand->depth + 1;
    }
    int evalInt(Frame &frame) const override
    {
        return frame.runtime.fails(*m_operand, frame, m_quiet);
    }

private:
    ExpressionPointer m_operand;
    bool m_quiet;
};

bool isPlainVariable(const Target &target)
{
    return target.isPlainVariable();
}

} // namespace

ExpressionPointer assign(std::unique_ptr<Target> target, ExpressionPointer value)
{
    if (isPlainVariable(*target) && target->type() == Type::Int)
        return std::make_unique<AssignInt>(std::move(target), std::move(value));
    if (isPlainVariable(*target) && target->type() == Type::Float)
        return std::make_unique<AssignFloat>(std::move(target), std::move(value));
    const Type type = target->type();
    return std::make_unique<Assign>(std::move(target), std::move(value), type);
}

ExpressionPointer compoundAssign(Operator op, std::unique_ptr<Target> target,
                                 ExpressionPointer value)
{
    const bool plain = isPlainVariable(*target);
    const bool sum = op == Operator::Add || op == Operator::Subtract;
    if (plain && sum && target->type() == Type::Int && value->type() == Type::Int)
        return std::make_unique<AddToInt>(std::move(target), std::move(value),
                                          op == Operator::Add ? 1 : -1);
    if (plain && target->type() == Type::String)
        return std::make_unique<Append>(std::move(target), std::move(value));
    const Type type = target->type();
    return std::make_unique<CompoundAssign>(op, std::move(target), std::move(value), type);
}

ExpressionPointer increment(std::unique_ptr<Target> target, int by, bool prefix)
{
    if (isPlainVariable(*target) && target->type() == Type::Int)
        return std::make_unique<IncrementInt>(std::move(target), by, prefix);
    return std::make_unique<Increment>(std::move(target), by, prefix);
}

ExpressionPointer catching(ExpressionPointer operand, bool quiet)
{
    return std::make_unique<Catching>(std::move(operand), quiet);
}

} // namespace mel::nodes
