// SPDX-License-Identifier: MIT
#include "standin/mel/nodes.h"

#include "standin/mel/runtime.h"
#include "standin/mel/withoperand.h"

#include <algorithm>

namespace mel::nodes {

namespace {

// An empty list is, as {} is.
bool areConstant(const ExpressionList &list)
{
    return std::all_of(list.begin(), list.end(),
                       [](const ExpressionPointer &e) { return e->isConstant(); });
}

// The operand's own evalInt() converts, so nothing is done twice.
class ToInt : public WithOperand<IntExpression>
{
public:
    using WithOperand::WithOperand;

    int evalInt(Frame &frame) const override { return m_operand->evalInt(frame); }
    bool isConstant() const override { return m_operand->isConstant(); }
};

class ToFloat : public WithOperand<FloatExpression>
{
public:
    using WithOperand::WithOperand;

    double evalFloat(Frame &frame) const override { return m_operand->evalFloat(frame); }
    bool isConstant() const override { return m_operand->isConstant(); }
};

// Any other conversion; what cannot be converted is only found out while running.
// Warnings for texts that are no numbers come each time it runs.
class Converted : public WithOperand<Expression>
{
public:
    Converted(ExpressionPointer operand, Type type) : WithOperand(std::move(operand), type) {}
    Value eval(Frame &frame) const override
    {
        return mel::convert(m_operand->eval(frame), type(), frame.runtime);
    }
    void evalText(Frame &frame, std::string &text) const override
    {
        Value value = m_operand->eval(frame);
        std::string *given = std::get_if<std::string>(&value);
        text = given ? std::move(*given) : toString(value);
    }
    bool isConstant() const override { return m_operand->isConstant(); }
};

// The words true, on, ... stand for numbers in arguments only.
// Assigned to a number, the text "on" is like any other and converts with a warning.
class Argument : public WithOperand<Expression>
{
public:
    Argument(ExpressionPointer operand, Type type) : WithOperand(std::move(operand), type) {}
    Value eval(Frame &frame) const override
    {
        return convertArgument(m_operand->eval(frame), type(), frame.runtime);
    }
};

// Not by truncation: 0.5 is true.
class Condition : public WithOperand<IntExpression>
{
public:
    using WithOperand::WithOperand;

    int evalInt(Frame &frame) const override
    {
        if (m_operand->type() == Type::Float)
            return m_operand->evalFloat(frame) != 0;
        return isTrue(m_operand->eval(frame), frame.runtime);
    }
};

// The elements are numbers already and are evaluated from left to right.
class VectorLiteral : public Expression
{
public:
    VectorLiteral(ExpressionPointer x, ExpressionPointer y, ExpressionPointer z)
        : Expression(Type::Vector), m_x(std::move(x)), m_y(std::move(y)), m_z(std::move(z))
    {
        depth = std::max({m_x->depth, m_y->depth, m_z->depth}) + 1;
    }
    Value eval(Frame &frame) const override
    {
        Vector vector;
        vector.x = m_x->evalFloat(frame);
        vector.y = m_y->evalFloat(frame);
        vector.z = m_z->evalFloat(frame);
        return vector;
    }
    bool isConstant() const override
    {
        return m_x->isConstant() && m_y->isConstant() && m_z->isConstant();
    }

private:
    ExpressionPointer m_x;
    ExpressionPointer m_y;
    ExpressionPointer m_z;
};

// Rows may differ in length: what is missing is zero.
// The literal's size is its own; a variable that takes it keeps the declared size.
class MatrixLiteral : public Expression
{
public:
    explicit MatrixLiteral(std::vector<ExpressionList> rows)
        : Expression(Type::Matrix), m_rows(std::move(rows))
    {
        for (const ExpressionList &row : m_rows) {
            m_columns = std::max(m_columns, row.size());
            for (const ExpressionPointer &element : row)
                depth = std::max(depth, element->depth + 1);
        }
    }
    Value eval(Frame &frame) const override;
    bool isConstant() const override
    {
        return std::all_of(m_rows.begin(), m_rows.end(), areConstant);
    }

private:
    std::vector<ExpressionList> m_rows;
    size_t m_columns = 0;
};

// The size is known from the literal, so the elements are filled in place.
Value MatrixLiteral::eval(Frame &frame) const
{
    Matrix matrix{static_cast<int>(m_rows.size()), static_cast<int>(m_columns), {}};
    matrix.elements.resize(m_rows.size() * m_columns);
    for (size_t row = 0; row < m_rows.size(); ++row)
        for (size_t column = 0; column < m_rows[row].size(); ++column)
            matrix.elements[row * m_columns + column] = m_rows[row][column]->evalFloat(frame);
    return matrix;
}

// An array literal takes the type of the variable it initialises, element by element.
class ArrayLiteral : public Expression
{
public:
    ArrayLiteral(ExpressionList elements, Type arrayType)
        : Expression(arrayType), m_elements(std::move(elements))
    {
        for (const ExpressionPointer &element : m_elements)
            depth = std::max(depth, element->depth + 1);
    }
    Value eval(Frame &frame) const override;
    bool isConstant() const override { return areConstant(m_elements); }
    void setType(Type arrayType) { m_type = arrayType; }

private:
    template <typename Held>
    Value collect(Frame &frame) const;

    ExpressionList m_elements;
};

template <typename Held>
Value ArrayLiteral::collect(Frame &frame) const
{
    std::vector<Held> array;
    // Converted one by one, since a dynamic element shows its type only now.
    array.reserve(m_elements.size());
    for (const ExpressionPointer &element : m_elements)
        array.push_back(
            std::get<Held>(mel::convert(element->eval(frame), elementOf(type()), frame.runtime)));
    return array;
}

// Its type is fixed once compiling is over, when setType() can no longer come.
Value ArrayLiteral::eval(Frame &frame) const
{
    switch (type()) {
    case Type::Ints:
        return collect<int>(frame);
    case Type::Floats:
        return collect<double>(frame);
    case Type::Vectors:
        return collect<Vector>(frame);
    default:
        return collect<std::string>(frame);
    }
}

} // namespace

ExpressionPointer convert(ExpressionPointer operand, Type to)
{
    if (operand->type() == to)
        return operand;
    if (const Value *known = operand->constant();
        known && isNumber(typeOf(*known)) && isNumber(to)) {
        // An int constant becomes a float once, here, instead of at every run.
        const int *whole = std::get_if<int>(known);
        return whole ? constant(double(*whole)) : std::make_unique<ToInt>(std::move(operand));
    }
    if (to == Type::Int)
        return std::make_unique<ToInt>(std::move(operand));
    if (to == Type::Float)
        return std::make_unique<ToFloat>(std::move(operand));
    return std::make_unique<Converted>(std::move(operand), to);
}

ExpressionPointer convertArgument(ExpressionPointer operand, Type to)
{
    const bool mayBeWord = operand->type() == Type::String || operand->type() == Type::Dynamic;
    if (mayBeWord && isNumber(to))
        return std::make_unique<Argument>(std::move(operand), to);
    return convert(std::move(operand), to);
}

// For words of command lines and values from outside, whose types nobody has checked.
Value convertArgument(Value value, Type to, WarningSink &warnings)
{
    const std::string *text = std::get_if<std::string>(&value);
    const int word = text && isNumber(to) ? booleanWord(*text) : -1;
    return mel::convert(word >= 0 ? Value(word) : std::move(value), to, warnings);
}

// Ints are asked as they are, which saves a node in most loops.
ExpressionPointer condition(ExpressionPointer operand)
{
    if (operand->type() == Type::Int)
        return operand;
    return std::make_unique<Condition>(std::move(operand));
}

ExpressionPointer vectorLiteral(ExpressionPointer x, ExpressionPointer y, ExpressionPointer z)
{
    return std::make_unique<VectorLiteral>(std::move(x), std::move(y), std::move(z));
}

ExpressionPointer matrixLiteral(std::vector<ExpressionList> rows)
{
    return std::make_unique<MatrixLiteral>(std::move(rows));
}

ExpressionPointer arrayLiteral(ExpressionList elements, Type arrayType)
{
    return std::make_unique<ArrayLiteral>(std::move(elements), arrayType);
}

ExpressionPointer retypedLiteral(ExpressionPointer &literal, Type arrayType)
{
    // Only the literal itself: in parentheses it is still the same node.
    ArrayLiteral *array = dynamic_cast<ArrayLiteral *>(literal.get());
    if (!array || !isArray(arrayType))
        return nullptr;
    array->setType(arrayType);
    return std::move(literal);
}

} // namespace mel::nodes
