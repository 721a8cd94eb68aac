// SPDX-License-Identifier: MIT
#include "standin/mel/functions.h"

#include "standin/mel/number.h"
#include "standin/mel/operators.h"
#include "standin/mel/runtime.h"

#include <algorithm>
#include <cmath>

namespace mel {

namespace {

// In radians. Written out, as the library's constant is not standard in C++17.
constexpr double degree = 3.14159265358979323846 / 180;

// One wrapper serves every function of the C library that has this shape.
template <double (*function)(double)>
Value unary(const Arguments &call)
{
    return function(call.number(0));
}

template <double (*function)(double, double)>
Value binary(const Arguments &call)
{
    return function(call.number(0), call.number(1));
}

template <double (*function)(double)>
Value ofDegrees(const Arguments &call)
{
    return function(call.number(0) * degree);
}

template <double (*function)(double)>
Value inDegrees(const Arguments &call)
{
    return function(call.number(0)) / degree;
}

Value atan2d(const Arguments &call)
{
    return std::atan2(call.number(0), call.number(1)) / degree;
}

// The lowest int has no positive counterpart and wraps to itself.
Value absOfInt(const Arguments &call)
{
    const int number = call.integer(0);
    return number < 0 ? subtractInts(0, number) : number;
}

// An error instead of NaN, which would spread unnoticed.
Value sqrt(const Arguments &call)
{
    if (call.number(0) < 0)
        throw RuntimeError("Domain error: square root of a negative number.");
    return std::sqrt(call.number(0));
}

// By zero it fails like the operator %.
Value fmod(const Arguments &call)
{
    return remainderOfFloats(call.number(0), call.number(1));
}

Value min(const Arguments &call)
{
    return std::min(call.number(0), call.number(1));
}

Value max(const Arguments &call)
{
    return std::max(call.number(0), call.number(1));
}

// Not std::clamp, which must not be given its bounds in the wrong order.
Value clamp(const Arguments &call)
{
    return std::max(call.number(0), std::min(call.number(1), call.number(2)));
}

Value sign(const Arguments &call)
{
    const double number = call.number(0);
    return number > 0 ? 1.0 : number < 0 ? -1.0 : 0.0;
}

Value degToRad(const Arguments &call)
{
    return call.number(0) * degree;
}

Value radToDeg(const Arguments &call)
{
    return call.number(0) / degree;
}

// Where x lies between start and end, from 0 to 1.
double fraction(const Arguments &call)
{
    const double start = call.number(0);
    const double end = call.number(1);
    const double x = call.number(2);
    // Also decides what happens when start and end are equal: a step, without a division by zero.
    if (x < start)
        return 0;
    return x >= end ? 1 : (x - start) / (end - start);
}

Value linstep(const Arguments &call)
{
    return fraction(call);
}

Value smoothstep(const Arguments &call)
{
    // The cubic with a slope of 0 at both ends.
    const double t = fraction(call);
    return t * t * (3 - 2 * t);
}

const Function rows[] = {
    {"abs", "f:f", unary<std::fabs>},
    // An int stays one; the exact match ranks above the row for floats.
    {"abs", "i:i", absOfInt},
    {"sin", "f:f", unary<std::sin>},
    {"cos", "f:f", unary<std::cos>},
    {"tan", "f:f", unary<std::tan>},
    {"asin", "f:f", unary<std::asin>},
    {"acos", "f:f", unary<std::acos>},
    {"atan", "f:f", unary<std::atan>},
    {"sinh", "f:f", unary<std::sinh>},
    {"cosh", "f:f", unary<std::cosh>},
    {"tanh", "f:f", unary<std::tanh>},
    {"sind", "f:f", ofDegrees<std::sin>},
    {"cosd", "f:f", ofDegrees<std::cos>},
    {"tand", "f:f", ofDegrees<std::tan>},
    {"asind", "f:f", inDegrees<std::asin>},
    {"acosd", "f:f", inDegrees<std::acos>},
    {"atand", "f:f", inDegrees<std::atan>},
    {"atan2", "f:ff", binary<std::atan2>},
    {"atan2d", "f:ff", atan2d},
    {"pow", "f:ff", binary<std::pow>},
    {"sqrt", "f:f", sqrt},
    {"exp", "f:f", unary<std::exp>},
    {"log", "f:f", unary<std::log>},
    {"log10", "f:f", unary<std::log10>},
    {"hypot", "f:ff", binary<std::hypot>},
    {"fmod", "f:ff", fmod},
    {"min", "f:ff", min},
    {"max", "f:ff", max},
    {"clamp", "f:fff", clamp},
    {"floor", "f:f", unary<std::floor>},
    {"ceil", "f:f", unary<std::ceil>},
    {"trunc", "f:f", unary<std::trunc>},
    {"sign", "f:f", sign},
    {"deg_to_rad", "f:f", degToRad},
    {"rad_to_deg", "f:f", radToDeg},
    {"linstep", "f:fff", linstep},
    {"smoothstep", "f:fff", smoothstep},
};

} // namespace

FunctionTable mathFunctions()
{
    return {rows, std::size(rows)};
}

} // namespace mel
