// SPDX-License-Identifier: MIT
#include "standin/mel/operators.h"

#include "standin/mel/command.h"
#include "standin/mel/number.h"
#include "standin/mel/vectormath.h"

#include <cmath>

namespace mel {

namespace {

// For floats as well: infinities would only show up far from the mistake.
[[noreturn]] void failDivision()
{
    throw RuntimeError("Division by zero");
}

int arithmetic(Operator op, int a, int b)
{
    switch (op) {
    case Operator::Add:
        return addInts(a, b);
    case Operator::Subtract:
        return subtractInts(a, b);
    case Operator::Multiply:
        return multiplyInts(a, b);
    case Operator::Divide:
        return divideInts(a, b);
    default:
        // Cross is refused by resultType() before it could come here.
        return remainderOfInts(a, b);
    }
}

double arithmetic(Operator op, double a, double b)
{
    switch (op) {
    case Operator::Add:
        return a + b;
    case Operator::Subtract:
        return a - b;
    case Operator::Multiply:
        return a * b;
    case Operator::Divide:
        return divideFloats(a, b);
    default:
        return remainderOfFloats(a, b);
    }
}

// A number takes part as a vector of three equal components, which scales for * and /.
Value vectorArithmetic(Operator op, const Value &left, const Value &right, WarningSink &warnings)
{
    const Vector a = toVector(left, warnings);
    const Vector b = toVector(right, warnings);
    if (op == Operator::Cross)
        return crossProduct(a, b);
    if (op == Operator::Multiply && typeOf(left) == typeOf(right))
        return dotProduct(a, b);
    return Vector{arithmetic(op, a.x, b.x), arithmetic(op, a.y, b.y), arithmetic(op, a.z, b.z)};
}

// Only vectors and matrices come here.
Matrix asMatrix(const Value &value, bool asColumn)
{
    if (const Matrix *matrix = std::get_if<Matrix>(&value))
        return *matrix;
    const Vector &v = std::get<Vector>(value);
    return asColumn ? Matrix{3, 1, {v.x, v.y, v.z}} : Matrix{1, 3, {v.x, v.y, v.z}};
}

// A row of three as the vector that stood on the left.
Value asVector(Matrix row)
{
    row.elements.resize(3);
    return Vector{row.elements[0], row.elements[1], row.elements[2]};
}

// A vector is a row on the left and a column on the right.
// A vector times a matrix is thus a vector again, when the matrix has three rows.
Value matrixProduct(const Value &left, const Value &right)
{
    const Matrix a = asMatrix(left, false);
    const Matrix b = asMatrix(right, true);
    // Sizes are not part of the type, so this is never known while compiling.
    if (a.columns != b.rows)
        throw RuntimeError("Matrix sizes do not match.");
    Matrix product{a.rows, b.columns, std::vector<double>(size_t(a.rows) * b.columns)};
    for (int row = 0; row < a.rows; ++row)
        for (int column = 0; column < b.columns; ++column)
            for (int i = 0; i < a.columns; ++i)
                product.elements[size_t(row) * b.columns + column] +=
                    a.elements[size_t(row) * a.columns + i] *
                    b.elements[size_t(i) * b.columns + column];
    if (typeOf(left) == Type::Vector)
        return asVector(std::move(product));
    return product;
}

// Operators that make no sense with the number on the left are refused by matrixResult().
Value matrixWithNumber(Operator op, const Value &left, const Value &right, WarningSink &warnings)
{
    const bool matrixFirst = typeOf(left) == Type::Matrix;
    Matrix result = std::get<Matrix>(matrixFirst ? left : right);
    const double number = toFloat(matrixFirst ? right : left, warnings);
    for (double &element : result.elements)
        element = arithmetic(op, element, number);
    return result;
}

// Sums work element by element and need equal sizes; a vector counts as a row.
Value matrixArithmetic(Operator op, const Value &left, const Value &right, WarningSink &warnings)
{
    if (isNumber(typeOf(left)) || isNumber(typeOf(right)))
        return matrixWithNumber(op, left, right, warnings);
    if (op == Operator::Multiply)
        return matrixProduct(left, right);
    Matrix result = asMatrix(left, false);
    const Matrix other = asMatrix(right, false);
    if (result.rows != other.rows || result.columns != other.columns)
        throw RuntimeError("Matrix sizes do not match.");
    for (size_t i = 0; i < result.elements.size(); ++i)
        result.elements[i] = arithmetic(op, result.elements[i], other.elements[i]);
    if (typeOf(left) == Type::Vector)
        return asVector(std::move(result));
    return result;
}

// Equality compares as texts or part by part, order compares as numbers.
// A number equals a text that prints the same; vectors are ordered by their length.
int compareValues(Operator op, const Value &left, const Value &right, WarningSink &warnings)
{
    const Type a = typeOf(left);
    const Type b = typeOf(right);
    const bool equality = op == Operator::Equal || op == Operator::NotEqual;
    if (a == Type::String && b == Type::String)
        return compare(op, std::get<std::string>(left), std::get<std::string>(right));
    if (equality && (a == Type::String || b == Type::String))
        return compare(op, toString(left), toString(right));
    if (equality && (a == Type::Vector || b == Type::Vector))
        return (toVector(left, warnings) == toVector(right, warnings)) == (op == Operator::Equal);
    return compare(op, toFloat(left, warnings), toFloat(right, warnings));
}

// With a vector as the other operand, the result is what stands on the left.
// Void for what has no meaning, such as a number plus a matrix.
Type matrixResult(Operator op, Type left, Type right)
{
    switch (op) {
    case Operator::Add:
    case Operator::Subtract:
        return isNumber(left) || isNumber(right) ? Type::Void : left;
    case Operator::Multiply:
        return isNumber(left) ? Type::Matrix : left;
    case Operator::Divide:
    case Operator::Remainder:
        return left == Type::Matrix && isNumber(right) ? Type::Matrix : Type::Void;
    default:
        return Type::Void;
    }
}

// Void operands have been refused before; dynamic ones may turn out to be comparable.
Type comparisonType(Type left, Type right)
{
    const auto comparable = [](Type type) { return type != Type::Matrix && !isArray(type); };
    return comparable(left) && comparable(right) ? Type::Int : Type::Void;
}

// Between two vectors * is the dot product and ^ the cross product.
Type vectorResult(Operator op, Type left, Type right)
{
    if (op == Operator::Cross)
        return left == right ? Type::Vector : Type::Void;
    return op == Operator::Multiply && left == right ? Type::Float : Type::Vector;
}

} // namespace

const char *spelling(Operator op)
{
    static const char *const spellings[] = {"+", "-",  "*", "/",  "%",  "^",
                                            "<", "<=", ">", ">=", "==", "!="};
    return spellings[static_cast<int>(op)];
}

bool isComparison(Operator op)
{
    return op >= Operator::Less;
}

// A text on either side makes + a concatenation and every other arithmetic an error.
Type resultType(Operator op, Type left, Type right)
{
    if (left == Type::Void || right == Type::Void)
        return Type::Void;
    if (isComparison(op))
        return comparisonType(left, right);
    if (isArray(left) || isArray(right))
        return Type::Void;
    if (left == Type::String || right == Type::String)
        return op == Operator::Add ? Type::String : Type::Void;
    if (left == Type::Dynamic || right == Type::Dynamic)
        return Type::Dynamic;
    if (left == Type::Matrix || right == Type::Matrix)
        return matrixResult(op, left, right);
    if (left == Type::Vector || right == Type::Vector)
        return vectorResult(op, left, right);
    if (op == Operator::Cross)
        return Type::Void;
    return left == Type::Float || right == Type::Float ? Type::Float : Type::Int;
}

std::string illegalOperation(Operator op, Type left, Type right)
{
    // The operand that no partner could make right is the one to name.
    const bool blameRight = resultType(op, left, left) != Type::Void;
    return illegalOperation(spelling(op), blameRight ? right : left);
}

std::string illegalOperation(const char *sign, Type operand)
{
    return std::string("Illegal operation \"") + sign + "\" on data of type " + typeName(operand) +
           ".";
}

// Toward zero, computed in 64 bits: the lowest int divided by -1 has no 32-bit result.
int divideInts(int a, int b)
{
    if (b == 0)
        failDivision();
    return wrap(std::int64_t(a) / b);
}

// The sign is that of the left operand.
int remainderOfInts(int a, int b)
{
    if (b == 0)
        failDivision();
    return wrap(std::int64_t(a) % b);
}

double divideFloats(double a, double b)
{
    if (b == 0)
        failDivision();
    return a / b;
}

double remainderOfFloats(double a, double b)
{
    if (b == 0)
        failDivision();
    return std::fmod(a, b);
}

// The same rules as for known types, so a script does not depend on what the compiler could tell.
Value apply(Operator op, const Value &left, const Value &right, WarningSink &warnings)
{
    const Type a = typeOf(left);
    const Type b = typeOf(right);
    const Type type = resultType(op, a, b);
    if (type == Type::Void)
        throw RuntimeError(illegalOperation(op, a, b));
    if (isComparison(op))
        return compareValues(op, left, right, warnings);
    if (type == Type::String)
        return toString(left) + toString(right);
    if (type == Type::Int)
        return arithmetic(op, std::get<int>(left), std::get<int>(right));
    if (a == Type::Matrix || b == Type::Matrix)
        return matrixArithmetic(op, left, right, warnings);
    if (a == Type::Vector || b == Type::Vector)
        return vectorArithmetic(op, left, right, warnings);
    return arithmetic(op, toFloat(left, warnings), toFloat(right, warnings));
}

// Floats only change their sign, as 0 - 0.0 would lose that of -0.0.
Value negate(const Value &value, WarningSink &warnings)
{
    if (const int *number = std::get_if<int>(&value))
        return subtractInts(0, *number);
    if (const double *number = std::get_if<double>(&value))
        return -*number;
    const Type type = typeOf(value);
    if (resultType(Operator::Multiply, type, Type::Int) == Type::Void)
        throw RuntimeError(illegalOperation("-", type));
    return apply(Operator::Multiply, value, -1, warnings);
}

} // namespace mel
