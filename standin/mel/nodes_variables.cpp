// SPDX-License-Identifier: MIT
#include "standin/mel/nodes.h"

#include "standin/mel/command.h"
#include "standin/mel/runtime.h"

namespace mel::nodes {

namespace {

// Reading beyond the end is allowed, so this is about negative indices and matrices.
[[noreturn]] void failIndex()
{
    throw RuntimeError("Array index out of range.");
}

[[noreturn]] void failIndexing(const Value &value)
{
    throw RuntimeError(std::string("Cannot index data of type ") + typeName(value) + ".");
}

// Texts, vectors and whatever else is no plain number.
// Owned by the tree; evaluating copies it.
class Constant : public Expression
{
public:
    explicit Constant(Value value) : Expression(typeOf(value)), m_value(std::move(value)) {}
    Value eval(Frame &) const override { return m_value; }
    void evalText(Frame &, std::string &text) const override { text = as<std::string>(m_value); }
    const Value *constant() const override { return &m_value; }

private:
    Value m_value;
};

// Twice the number: one to compute with, one to show as a Value.
class IntConstant : public IntExpression
{
public:
    explicit IntConstant(int number) : m_number(number), m_value(number) {}
    int evalInt(Frame &) const override { return m_number; }
    const Value *constant() const override { return &m_value; }

private:
    int m_number;
    Value m_value;
};

class FloatConstant : public FloatExpression
{
public:
    explicit FloatConstant(double number) : m_number(number), m_value(number) {}
    double evalFloat(Frame &) const override { return m_number; }
    const Value *constant() const override { return &m_value; }

private:
    double m_number;
    Value m_value;
};

// A variable as a whole. Numbers are read without copying the value that holds them.
class Variable : public Target
{
public:
    Variable(Storage storage, Type type) : Target(type), m_storage(storage) {}
    bool isPlainVariable() const override { return true; }
    Value load(Frame &frame, Index) const override { return m_storage.in(frame); }
    void store(Frame &frame, Index, Value value) const override;
    void assign(Frame &frame, Index index, const Expression &expression) const override;
    Value *variable(Frame &frame) const override { return &m_storage.in(frame); }
    int evalInt(Frame &frame) const override;
    double evalFloat(Frame &frame) const override;
    void evalText(Frame &frame, std::string &text) const override
    {
        text = as<std::string>(m_storage.in(frame));
    }
    void evalLast(Value &place, Frame &frame) const override;

private:
    Storage m_storage;
};

// No matrix has been stored yet where rows are 0: then the variable takes the size of the value.
void Variable::store(Frame &frame, Index, Value value) const
{
    Value &place = m_storage.in(frame);
    Matrix *old = std::get_if<Matrix>(&place);
    const Matrix *given = std::get_if<Matrix>(&value);
    // A matrix variable keeps its declared size: what is missing is 0, what is beyond is dropped.
    if (type() == Type::Matrix && old && given && old->rows > 0) {
        for (int row = 0; row < old->rows; ++row)
            for (int column = 0; column < old->columns; ++column)
                old->elements[size_t(row) * old->columns + column] =
                    row < given->rows && column < given->columns
                        ? given->elements[size_t(row) * given->columns + column]
                        : 0;
        return;
    }
    place = std::move(value);
}

void Variable::assign(Frame &frame, Index index, const Expression &expression) const
{
    if (type() != Type::String)
        return Target::assign(frame, index, expression);
    // Evaluated before the variable is touched, which it may read.
    std::string text = expression.asText(frame);
    as<std::string>(m_storage.in(frame)) = std::move(text);
}

int Variable::evalInt(Frame &frame) const
{
    const Value &value = m_storage.in(frame);
    const int *number = std::get_if<int>(&value);
    // Other types come this way: a float read as an int, or a dynamic variable.
    return number ? *number : toInt(value, frame.runtime);
}

double Variable::evalFloat(Frame &frame) const
{
    const Value &value = m_storage.in(frame);
    const double *number = std::get_if<double>(&value);
    return number ? *number : toFloat(value, frame.runtime);
}

void Variable::evalLast(Value &place, Frame &frame) const
{
    if (Value *own = m_storage.ownedBy(frame))
        place = std::move(*own);
    else
        evalInto(place, frame);
}

// An element of an array whose type is known. Writing beyond the end grows the array, by doubling,
// so that filling one element by element stays linear; reading there gives the default.
template <typename Held>
class Element : public Target
{
public:
    Element(Storage array, Type type, ExpressionPointer index)
        : Target(type), m_array(array), m_index(std::move(index))
    {
        depth = m_index->depth + 1;
    }
    // A float index truncates.
    Index locate(Frame &frame) const override { return {m_index->evalInt(frame), 0}; }
    Value load(Frame &frame, Index index) const override { return at(frame, index); }
    void store(Frame &frame, Index index, Value value) const override;
    void assign(Frame &frame, Index index, const Expression &expression) const override;
    int evalInt(Frame &frame) const override;
    double evalFloat(Frame &frame) const override;
    void evalText(Frame &frame, std::string &text) const override;

private:
    // The element, a default beyond the end.
    const Held &at(Frame &frame, Index index) const;
    // The same for writing, which makes it.
    Held &grown(Frame &frame, Index index) const;

    Storage m_array;
    ExpressionPointer m_index;
};

template <typename Held>
const Held &Element<Held>::at(Frame &frame, Index index) const
{
    // One per element type, so that reading beyond the end costs no allocation.
    static const Held none = Held();
    const Array<Held> &array = as<Array<Held>>(m_array.in(frame));
    if (index.row < 0)
        failIndex();
    return size_t(index.row) < array.size() ? array[size_t(index.row)] : none;
}

template <typename Held>
Held &Element<Held>::grown(Frame &frame, Index index) const
{
    Array<Held> &array = as<Array<Held>>(m_array.in(frame));
    if (index.row < 0)
        failIndex();
    // In 64 bits, as the largest int plus one has no place in 32.
    frame.runtime.checkElements(std::int64_t(index.row) + 1);
    std::vector<Held> &elements = array.edit();
    if (size_t(index.row) >= elements.size())
        elements.resize(size_t(index.row) + 1);
    return elements[size_t(index.row)];
}

template <typename Held>
void Element<Held>::store(Frame &frame, Index index, Value value) const
{
    grown(frame, index) = std::move(as<Held>(value));
}

// Evaluated before the element is made: a failing expression leaves the array as it was.
template <typename Held>
void Element<Held>::assign(Frame &frame, Index index, const Expression &expression) const
{
    if constexpr (std::is_same_v<Held, std::string>) {
        std::string text = expression.asText(frame);
        grown(frame, index) = std::move(text);
    } else if constexpr (std::is_same_v<Held, int>) {
        const int number = expression.evalInt(frame);
        grown(frame, index) = number;
    } else if constexpr (std::is_same_v<Held, double>) {
        const double number = expression.evalFloat(frame);
        grown(frame, index) = number;
    } else {
        Target::assign(frame, index, expression);
    }
}

// Without a Value in between where the element is the number asked for.
template <typename Held>
int Element<Held>::evalInt(Frame &frame) const
{
    if constexpr (std::is_same_v<Held, int>)
        return at(frame, locate(frame));
    return Target::evalInt(frame);
}

template <typename Held>
double Element<Held>::evalFloat(Frame &frame) const
{
    if constexpr (std::is_arithmetic_v<Held>)
        return at(frame, locate(frame));
    return Target::evalFloat(frame);
}

template <typename Held>
void Element<Held>::evalText(Frame &frame, std::string &text) const
{
    if constexpr (std::is_same_v<Held, std::string>)
        text = at(frame, locate(frame));
    else
        Target::evalText(frame, text);
}

// Calls back with the array that the variable holds at the moment.
// The visitor must return the same type for all of them.
template <typename Visitor>
auto visitArray(Value &value, Visitor visitor)
{
    switch (typeOf(value)) {
    case Type::Ints:
        return visitor(std::get<IntArray>(value));
    case Type::Floats:
        return visitor(std::get<FloatArray>(value));
    case Type::Strings:
        return visitor(std::get<StringArray>(value));
    case Type::Vectors:
        return visitor(std::get<VectorArray>(value));
    default:
        failIndexing(value);
    }
}

// An element of a variable that only happens to hold an array.
// Storing converts to the element type that the variable has at that moment.
class DynamicElement : public Target
{
public:
    DynamicElement(Storage array, ExpressionPointer index)
        : Target(Type::Dynamic), m_array(array), m_index(std::move(index))
    {
        depth = m_index->depth + 1;
    }
    Index locate(Frame &frame) const override { return {m_index->evalInt(frame), 0}; }
    Value load(Frame &frame, Index index) const override;
    void store(Frame &frame, Index index, Value value) const override;

private:
    Storage m_array;
    ExpressionPointer m_index;
};

Value DynamicElement::load(Frame &frame, Index index) const
{
    if (index.row < 0)
        failIndex();
    return visitArray(m_array.in(frame), [index](const auto &array) -> Value {
        using Held = typename std::decay_t<decltype(array)>::value_type;
        return size_t(index.row) < array.size() ? Value(array[size_t(index.row)]) : Value(Held());
    });
}

void DynamicElement::store(Frame &frame, Index index, Value value) const
{
    if (index.row < 0)
        failIndex();
    frame.runtime.checkElements(std::int64_t(index.row) + 1);
    Value &variable = m_array.in(frame);
    if (!isArray(typeOf(variable)))
        failIndexing(variable);
    Value element = mel::convert(std::move(value), elementOf(typeOf(variable)), frame.runtime);
    visitArray(variable, [&](auto &array) {
        using Held = typename std::decay_t<decltype(array)>::value_type;
        std::vector<Held> &elements = array.edit();
        if (size_t(index.row) >= elements.size())
            elements.resize(size_t(index.row) + 1);
        elements[size_t(index.row)] = std::move(std::get<Held>(element));
    });
}

// A matrix never grows, so both indices have to be inside.
class MatrixElement : public Target
{
public:
    MatrixElement(Storage matrix, ExpressionPointer row, ExpressionPointer column)
        : Target(Type::Float), m_matrix(matrix), m_row(std::move(row)), m_column(std::move(column))
    {
        depth = std::max(m_row->depth, m_column->depth) + 1;
    }
    Index locate(Frame &frame) const override;
    Value load(Frame &frame, Index index) const override { return at(frame, index); }
    void store(Frame &frame, Index index, Value value) const override;

private:
    double &at(Frame &frame, Index index) const;

    Storage m_matrix;
    ExpressionPointer m_row;
    ExpressionPointer m_column;
};

// The row first, as it is written.
Target::Index MatrixElement::locate(Frame &frame) const
{
    const int row = m_row->evalInt(frame);
    return {row, m_column->evalInt(frame)};
}

double &MatrixElement::at(Frame &frame, Index index) const
{
    Matrix &matrix = as<Matrix>(m_matrix.in(frame));
    if (index.row < 0 || index.row >= matrix.rows || index.column < 0 ||
        index.column >= matrix.columns)
        failIndex();
    return matrix.elements[size_t(index.row) * matrix.columns + index.column];
}

void MatrixElement::store(Frame &frame, Index index, Value value) const
{
    at(frame, index) = toFloat(value, frame.runtime);
}

// $v.x, which can be read only.
// A whole vector has to be assigned to change one component.
class Component : public FloatExpression
{
public:
    Component(ExpressionPointer vector, char axis) : m_vector(std::move(vector)), m_axis(axis)
    {
        depth = m_vector->depth + 1;
    }
    double evalFloat(Frame &frame) const override
    {
        const Vector vector = toVector(m_vector->eval(frame), frame.runtime);
        return m_axis == 'x' ? vector.x : m_axis == 'y' ? vector.y : vector.z;
    }

private:
    ExpressionPointer m_vector;
    char m_axis;
};

// A local variable starts afresh each time its declaration is reached, in loops too.
class Reset : public Expression
{
public:
    Reset(Storage storage, Value initial)
        : Expression(Type::Void), m_storage(storage), m_initial(std::move(initial))
    {
    }
    Value eval(Frame &frame) const override
    {
        m_storage.in(frame) = m_initial;
        return {};
    }

private:
    Storage m_storage;
    Value m_initial;
};

} // namespace

ExpressionPointer constant(Value value)
{
    if (const int *number = std::get_if<int>(&value))
        return std::make_unique<IntConstant>(*number);
    if (const double *number = std::get_if<double>(&value))
        return std::make_unique<FloatConstant>(*number);
    return std::make_unique<Constant>(std::move(value));
}

std::unique_ptr<Target> variable(Storage storage, Type type)
{
    return std::make_unique<Variable>(storage, type);
}

// The type of the array picks the node; one that is not known yet is asked for at run time.
std::unique_ptr<Target> element(Storage array, Type arrayType, ExpressionPointer index)
{
    const Type type = elementOf(arrayType);
    switch (type) {
    case Type::Int:
        return std::make_unique<Element<int>>(array, type, std::move(index));
    case Type::Float:
        return std::make_unique<Element<double>>(array, type, std::move(index));
    case Type::String:
        return std::make_unique<Element<std::string>>(array, type, std::move(index));
    case Type::Vector:
        return std::make_unique<Element<Vector>>(array, type, std::move(index));
    default:
        return std::make_unique<DynamicElement>(array, std::move(index));
    }
}

std::unique_ptr<Target> matrixElement(Storage matrix, ExpressionPointer row,
                                      ExpressionPointer column)
{
    return std::make_unique<MatrixElement>(matrix, std::move(row), std::move(column));
}

ExpressionPointer component(ExpressionPointer vector, char axis)
{
    return std::make_unique<Component>(std::move(vector), axis);
}

ExpressionPointer reset(Storage storage, Value initial)
{
    return std::make_unique<Reset>(storage, std::move(initial));
}

} // namespace mel::nodes
