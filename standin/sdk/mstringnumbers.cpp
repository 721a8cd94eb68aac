// SPDX-License-Identifier: MIT
#include <maya/MString.h>

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdlib>

STANDIN_API_OPEN

namespace {

// Whether all of the text is a whole number, blanks before it allowed.
bool readsAsWhole(const char *text, long long &value)
{
    char *end = nullptr;
    errno = 0;
    value = std::strtoll(text, &end, 10);
    // The end tells "3x" from "3", errno a number too long for the type from the largest one.
    return end != text && *end == '\0' && errno == 0;
}

bool isWholeBetween(const char *text, long long minimum, long long maximum)
{
    long long value = 0;
    return readsAsWhole(text, value) && value >= minimum && value <= maximum;
}

} // namespace

// The reading functions never fail: what does not read as a number is 0, as in the language.
int MString::asInt() const
{
    return static_cast<int>(std::strtol(asChar(), nullptr, 10));
}

short MString::asShort() const
{
    return static_cast<short>(asInt());
}

unsigned int MString::asUnsigned() const
{
    return static_cast<unsigned int>(std::strtoul(asChar(), nullptr, 10));
}

float MString::asFloat() const
{
    return static_cast<float>(asDouble());
}

double MString::asDouble() const
{
    return std::strtod(asChar(), nullptr);
}

bool MString::isInt() const
{
    return isWholeBetween(asChar(), INT_MIN, INT_MAX);
}

bool MString::isShort() const
{
    return isWholeBetween(asChar(), SHRT_MIN, SHRT_MAX);
}

bool MString::isUnsigned() const
{
    return isWholeBetween(asChar(), 0, UINT_MAX);
}

// A number beyond the range of float still reads as one.
bool MString::isFloat() const
{
    return isDouble();
}

bool MString::isDouble() const
{
    const char *text = asChar();
    char *end = nullptr;
    // strtod also reads "inf" and "nan", which are no numbers of the language.
    const double value = std::strtod(text, &end);
    return end != text && *end == '\0' && std::isfinite(value);
}

STANDIN_API_CLOSE
