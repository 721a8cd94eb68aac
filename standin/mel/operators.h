// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/conversion.h"

#include <optional>

namespace mel {

// In the order of spelling()'s table, comparisons last.
enum class Operator {
    Add,
    Subtract,
    Multiply,
    Divide,
    Remainder,
    Cross,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Equal,
    NotEqual
};

const char *spelling(Operator op);
bool isComparison(Operator op);

// The type of `left op right`; Void when the operator has no meaning for these types.
// Dynamic when it depends on the values. A comparison is always an int.
Type resultType(Operator op, Type left, Type right);

// 'Illegal operation "+" on data of type string[].', naming the operand that does not fit.
std::string illegalOperation(Operator op, Type left, Type right);
std::string illegalOperation(const char *sign, Type operand);

// These throw RuntimeError("Division by zero").
int divideInts(int a, int b);
int remainderOfInts(int a, int b);
double divideFloats(double a, double b);
double remainderOfFloats(double a, double b);

// Any operator on values whose types are only known now.
Value apply(Operator op, const Value &left, const Value &right, WarningSink &warnings);
// Throws RuntimeError where there is no negative, as of texts and arrays.
Value negate(const Value &value, WarningSink &warnings);

// Unequal is the opposite of equal, so NaN differs from everything, itself included.
template <typename T>
bool compare(Operator op, const T &a, const T &b)
{
    switch (op) {
    case Operator::Less:
        return a < b;
    case Operator::LessEqual:
        return a <= b;
    case Operator::Greater:
        return a > b;
    case Operator::GreaterEqual:
        return a >= b;
    case Operator::Equal:
        return a == b;
    default:
        return !(a == b);
    }
}

} // namespace mel
