// SPDX-License-Identifier: MIT
#include "standin/mel/builder.h"

namespace mel {

namespace {

// How deep a tree may be that evaluation walks without looking at the stack; a chain of operators
// is one level for each of them.
constexpr int depthLimit = 1000;

} // namespace

void Builder::checkDepth(const Expression &expression)
{
    if (expression.depth > depthLimit)
        throw CompileError("Expression is too long.");
}

// Conversions that cannot work are errors before anything runs, where both types are known.
ExpressionPointer Builder::convert(ExpressionPointer value, Type to)
{
    // A literal has no type of its own yet: {1, 2} fits float[] without converting an int[].
    if (auto literal = nodes::retypedLiteral(value, to))
        return literal;
    if (!canConvert(value->type(), to))
        failCast(value->type(), to);
    return to == Type::Dynamic ? std::move(value) : nodes::convert(std::move(value), to);
}

// A text counts by the number in it, a vector by its length.
ExpressionPointer Builder::condition(ExpressionPointer value)
{
    if (!canConvert(value->type(), Type::Float))
        failCast(value->type(), Type::Int);
    return nodes::condition(std::move(value));
}

ExpressionPointer Builder::component(ExpressionPointer vector, char axis)
{
    if (vector->type() != Type::Vector && vector->type() != Type::Dynamic)
        failCast(vector->type(), Type::Vector);
    return nodes::component(std::move(vector), axis);
}

// Three numbers in one row are a vector, everything else is a matrix.
// Deliberate: <<1, 2>> is a matrix of one row rather than an error.
ExpressionPointer Builder::vectorOrMatrix(std::vector<ExpressionList> rows)
{
    for (ExpressionList &row : rows) {
        for (ExpressionPointer &element : row)
            element = convert(std::move(element), Type::Float);
    }
    if (rows.size() == 1 && rows[0].size() == 3)
        return nodes::vectorLiteral(std::move(rows[0][0]), std::move(rows[0][1]),
                                    std::move(rows[0][2]));
    return nodes::matrixLiteral(std::move(rows));
}

// The first element says what the array holds, unless a later one is of a type that takes both.
// An empty literal holds texts until the variable it initialises says otherwise.
ExpressionPointer Builder::arrayLiteral(ExpressionList elements)
{
    Type type = Type::Void;
    for (const ExpressionPointer &element : elements) {
        const Type own = element->type();
        if (own != Type::Dynamic && arrayOf(own) == Type::Void)
            failCast(own, Type::String);
        if (type == Type::Void || own == Type::String || (own == Type::Float && type == Type::Int))
            type = own == Type::Dynamic ? Type::String : own;
    }
    return nodes::arrayLiteral(std::move(elements),
                               arrayOf(type == Type::Void ? Type::String : type));
}

// Whatever can be multiplied by -1 can be negated, vectors and matrices included.
ExpressionPointer Builder::negate(ExpressionPointer value)
{
    const Type type = value->type();
    if (type != Type::Dynamic && resultType(Operator::Multiply, type, Type::Int) == Type::Void)
        throw CompileError(illegalOperation("-", type));
    return nodes::negate(std::move(value));
}

ExpressionPointer Builder::binary(Operator op, ExpressionPointer left, ExpressionPointer right)
{
    const Type type = resultType(op, left->type(), right->type());
    if (type == Type::Void)
        throw CompileError(illegalOperation(op, left->type(), right->type()));
    ExpressionPointer node = nodes::binary(op, std::move(left), std::move(right), type);
    checkDepth(*node);
    return node;
}

// `left` is a condition already.
ExpressionPointer Builder::logical(bool isAnd, ExpressionPointer left, ExpressionPointer right)
{
    right = condition(std::move(right));
    ExpressionPointer node = isAnd ? nodes::logicalAnd(std::move(left), std::move(right))
                                   : nodes::logicalOr(std::move(left), std::move(right));
    checkDepth(*node);
    return node;
}

// Both branches take the type that holds either.
ExpressionPointer Builder::conditional(ExpressionPointer condition, ExpressionPointer yes,
                                       ExpressionPointer no)
{
    Type type = yes->type();
    // What + would give is the type both convert to: int and float meet in float, text takes all.
    if (type != no->type()) {
        const Type sum = resultType(Operator::Add, type, no->type());
        type = sum == Type::Void ? Type::Dynamic : sum;
    }
    if (type == Type::Void)
        failCast(Type::Void, Type::Int);
    if (type != Type::Dynamic) {
        yes = convert(std::move(yes), type);
        no = convert(std::move(no), type);
    }
    return nodes::conditional(std::move(condition), std::move(yes), std::move(no), type);
}

ExpressionPointer Builder::assign(std::unique_ptr<Target> target, ExpressionPointer value)
{
    const Type type = target->type();
    if (value->type() == Type::Void)
        failCast(Type::Void, type == Type::Dynamic ? Type::Int : type);
    return nodes::assign(std::move(target), convert(std::move(value), type));
}

// $i += 0.5 keeps an int variable an int: the sum converts back and loses its fraction.
ExpressionPointer Builder::compoundAssign(Operator op, std::unique_ptr<Target> target,
                                          ExpressionPointer value)
{
    const Type type = resultType(op, target->type(), value->type());
    if (type == Type::Void)
        throw CompileError(illegalOperation(op, target->type(), value->type()));
    if (!canConvert(type, target->type()))
        failCast(type, target->type());
    return nodes::compoundAssign(op, std::move(target), std::move(value));
}

ExpressionPointer Builder::increment(std::unique_ptr<Target> target, int by, bool prefix)
{
    // A dynamic variable may hold a number by then; the node checks again.
    const Type type = target->type();
    if (!isNumber(type) && type != Type::Dynamic)
        throw CompileError(illegalOperation(by > 0 ? "++" : "--", type));
    return nodes::increment(std::move(target), by, prefix);
}

} // namespace mel
