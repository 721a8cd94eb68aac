// SPDX-License-Identifier: MIT
#include "standin/mel/functions.h"

#include "standin/mel/runtime.h"
#include "standin/mel/vectormath.h"

#include <algorithm>

namespace mel {

namespace {

// Calls back with the array; anything else is an error.
template <typename Visitor>
Value withArray(Value &value, Visitor visitor)
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
        failConversion(typeOf(value), Type::Strings);
    }
}

Value clear(const Arguments &call)
{
    return withArray(call.value(0), [](auto &array) {
        array = {};
        return 0;
    });
}

// Texts by their bytes, so capitals stand before small letters.
struct Ascending
{
    template <typename T>
    bool operator()(const T &a, const T &b) const
    {
        return a < b;
    }
    bool operator()(const Vector &a, const Vector &b) const { return magnitude(a) < magnitude(b); }
};

// Stable, and answered as a new array: the argument stays as it was.
Value sort(const Arguments &call)
{
    return withArray(call.value(0), [](const auto &array) {
        auto sorted = array.elements();
        std::stable_sort(sorted.begin(), sorted.end(), Ascending());
        return Value(std::move(sorted));
    });
}

// ASCII only; the order of other letters depends on a locale that scripts cannot choose.
char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool beforeIgnoringCase(const std::string &a, const std::string &b)
{
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return lowered(x) < lowered(y); });
}

Value sortCaseInsensitive(const Arguments &call)
{
    std::vector<std::string> sorted = call.strings(0).elements();
    std::stable_sort(sorted.begin(), sorted.end(), beforeIgnoringCase);
    return sorted;
}

const Function rows[] = {
    {"clear", "i:A", clear},
    // The rows after the first tell the result's type where the argument's is known.
    {"sort", "?:A", sort},
    {"sort", "I:I", sort},
    {"sort", "F:F", sort},
    {"sort", "S:S", sort},
    {"sort", "V:V", sort},
    {"sortCaseInsensitive", "S:S", sortCaseInsensitive},
};

} // namespace

FunctionTable arrayFunctions()
{
    return {rows, std::size(rows)};
}

} // namespace mel
