// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/value.h"

namespace mel {

// The first ten are in the order of Value's alternatives. Dynamic is the type of an expression or
// variable whose type is only known while the script runs.
// A number stays valid as an index of the variant, see typeOf().
enum class Type {
    Void,
    Int,
    Float,
    String,
    Vector,
    Matrix,
    Ints,
    Floats,
    Strings,
    Vectors,
    Dynamic
};

inline Type typeOf(const Value &value)
{
    return static_cast<Type>(value.index());
}

// A matrix is none: it has a fixed size and no element type of its own.
inline bool isArray(Type type)
{
    return type >= Type::Ints && type <= Type::Vectors;
}

inline bool isNumber(Type type)
{
    return type == Type::Int || type == Type::Float;
}

// "int", "string[]"; "undefined" for Void.
const char *typeName(Type type);

// Void when there is no such array or element type.
Type arrayOf(Type element);
Type elementOf(Type array);

// What a variable of that type holds before anything is assigned. A dynamic one starts as 0.
// A matrix has no size before its declaration gives one.
Value defaultValue(Type type);

} // namespace mel
