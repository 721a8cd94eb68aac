// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/array.h"

#include <string>
#include <variant>
#include <vector>

namespace mel {

// Also what fwrite puts into files, so the three numbers stay adjacent and in this order.
struct Vector
{
    double x = 0;
    double y = 0;
    double z = 0;

    friend bool operator==(const Vector &a, const Vector &b)
    {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
};

// Row-major; the size never changes after construction.
// A default-made one has no elements and takes the size of what is stored first.
struct Matrix
{
    int rows = 0;
    int columns = 0;
    std::vector<double> elements;

    friend bool operator==(const Matrix &a, const Matrix &b)
    {
        return a.rows == b.rows && a.columns == b.columns && a.elements == b.elements;
    }
};

// Arrays have one dimension; the language has no arrays of arrays.
using IntArray = Array<int>;
using FloatArray = Array<double>;
using StringArray = Array<std::string>;
using VectorArray = Array<Vector>;

// One MEL value as it crosses the interpreter's border; monostate is "no value" (void).
// Strings are UTF-8.
using Value = std::variant<std::monostate, int, double, std::string, Vector, Matrix, IntArray,
                           FloatArray, StringArray, VectorArray>;

inline bool isVoid(const Value &value)
{
    return std::holds_alternative<std::monostate>(value);
}

// As print, fprint and string conversion write it: floats with ten significant digits, each
// element of an array followed by a line break.
std::string printText(const Value &value);

// As the Result message shows it: floats with six digits, elements joined by one blank.
std::string resultText(const Value &value);

// "int", "string[]", "vector", ...; "undefined" for no value.
const char *typeName(const Value &value);

} // namespace mel
