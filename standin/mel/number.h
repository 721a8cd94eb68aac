// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

// Arithmetic and number texts without undefined cases. Nothing here depends on the locale, which
// the surrounding program may set.
namespace mel {

// The low 32 bits. Overflow wraps around in the language, where C++ leaves it undefined.
inline int wrap(std::int64_t value)
{
    return static_cast<int>(static_cast<std::uint32_t>(value));
}

inline int addInts(int a, int b)
{
    return wrap(std::int64_t(a) + b);
}

inline int subtractInts(int a, int b)
{
    return wrap(std::int64_t(a) - b);
}

inline int multiplyInts(int a, int b)
{
    return wrap(std::int64_t(a) * b);
}

// Truncates; beyond the range the nearest int, 0 for what is not a number.
int truncate(double value);

// As "%.<digits>g".
std::string floatText(double value, int digits);

// Infinite when the digits are beyond the range of a float; `found` is false for "inf" and "nan".
struct LeadingNumber
{
    bool found = false;
    double value = 0;
    size_t length = 0; // bytes read, leading blanks included
};

// The decimal number at the start of a text, after blanks and a sign.
LeadingNumber leadingNumber(std::string_view text);

} // namespace mel
