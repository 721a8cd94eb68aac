// SPDX-License-Identifier: MIT
#include "standin/mel/number.h"

#include <charconv>
#include <cmath>

namespace mel {

// The bounds are compared first, as converting a float beyond them is undefined in C++.
int truncate(double value)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (std::isnan(value))
        return 0;
    if (value <= lowest)
        return std::numeric_limits<int>::min();
    return value >= highest ? std::numeric_limits<int>::max() : static_cast<int>(value);
}

// As printf would in the C locale, whatever locale the program has set: no comma gets in.
std::string floatText(double value, int digits)
{
    if (std::isnan(value))
        return "nan";
    // Ample for 10 digits, sign, point and exponent.
    char buffer[64];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits);
    return std::string(buffer, end.ptr);
}

LeadingNumber leadingNumber(std::string_view text)
{
    const size_t first = text.find_first_not_of(" \t\r\n\f\v");
    if (first == std::string_view::npos)
        return {};
    const bool signedPlus = text[first] == '+';
    const bool signedMinus = text[first] == '-';
    const size_t digits = first + (signedPlus || signedMinus ? 1 : 0);
    // The library also reads "inf" and "nan", which are plain words here.
    if (digits >= text.size() || text.find_first_of("0123456789.", digits) != digits)
        return {};
    LeadingNumber number;
    const char *end = text.data() + text.size();
    const auto read = std::from_chars(text.data() + digits, end, number.value);
    if (read.ec == std::errc::invalid_argument)
        return {};
    if (read.ec == std::errc::result_out_of_range)
        number.value = std::numeric_limits<double>::infinity();
    number.found = true;
    number.value = signedMinus ? -number.value : number.value;
    number.length = static_cast<size_t>(read.ptr - text.data());
    return number;
}

} // namespace mel
