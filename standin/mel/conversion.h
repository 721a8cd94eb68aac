// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/type.h"

#include <string>
#include <utility>

namespace mel {

// Takes the warnings of conversions that lose something.
// Text that is no number converts to 0 and goes on, so the warning is all a script's author sees.
class WarningSink
{
public:
    virtual ~WarningSink() = default;
    virtual void warning(const std::string &text) = 0;
};

// Whether a value of one type may stand where another is wanted, as far as the types tell.
// Dynamic on either side means "perhaps", to be decided by convert() at run time; void never fits.
bool canConvert(Type from, Type to);

// Throws RuntimeError("Cannot convert data of type ... to type ....").
[[noreturn]] void failConversion(Type from, Type to);

// These throw RuntimeError where there is no conversion.
// Truncation goes toward zero. A vector counts by its length, text by the number at its start.
int toInt(const Value &value, WarningSink &warnings);
double toFloat(const Value &value, WarningSink &warnings);
// The form that print writes. Arrays and void have none.
std::string toString(const Value &value);
// A number fills all three components; text gives up to three; three floats are taken as they are.
Vector toVector(const Value &value, WarningSink &warnings);
// Void, matrices and arrays are neither true nor false: they throw.
bool isTrue(const Value &value, WarningSink &warnings);

// To Dynamic means any value but none.
Value convert(Value value, Type to, WarningSink &warnings);

// The words that stand for a boolean: 1, 0, or -1 when it is another word.
int booleanWord(const std::string &word);

// The alternative of that type; a RuntimeError, not undefined behaviour, when a dynamic variable
// has changed its type meanwhile.
template <typename T>
T &as(Value &value)
{
    if (T *held = std::get_if<T>(&value))
        return *held;
    failConversion(typeOf(value), typeOf(Value(T())));
}

template <typename T>
const T &as(const Value &value)
{
    return as<T>(const_cast<Value &>(value));
}

} // namespace mel
