// SPDX-License-Identifier: MIT
#include "standin/mel/type.h"

namespace mel {

const char *typeName(Type type)
{
    // Indexed by Type; Dynamic has no name of its own.
    static const char *const names[] = {"undefined", "int",      "float",    "string",
                                        "vector",    "matrix",   "int[]",    "float[]",
                                        "string[]",  "vector[]", "undefined"};
    return names[static_cast<int>(type)];
}

// Of what is held now; for a dynamic variable it changes with each assignment.
const char *typeName(const Value &value)
{
    return typeName(typeOf(value));
}

// A matrix has no arrays.
Type arrayOf(Type element)
{
    switch (element) {
    case Type::Int:
        return Type::Ints;
    case Type::Float:
        return Type::Floats;
    case Type::String:
        return Type::Strings;
    case Type::Vector:
        return Type::Vectors;
    default:
        return Type::Void;
    }
}

Type elementOf(Type array)
{
    switch (array) {
    case Type::Ints:
        return Type::Int;
    case Type::Floats:
        return Type::Float;
    case Type::Strings:
        return Type::String;
    case Type::Vectors:
        return Type::Vector;
    default:
        return Type::Void;
    }
}

Value defaultValue(Type type)
{
    switch (type) {
    case Type::Float:
        return 0.0;
    case Type::String:
        return std::string();
    case Type::Vector:
        return Vector();
    case Type::Matrix:
        return Matrix();
    case Type::Ints:
        return IntArray();
    case Type::Floats:
        return FloatArray();
    case Type::Strings:
        return StringArray();
    case Type::Vectors:
        return VectorArray();
    case Type::Void:
        return {};
    // Deliberate: a dynamic variable starts as the int 0, so that it can be counted up at once.
    default:
        return 0;
    }
}

} // namespace mel
