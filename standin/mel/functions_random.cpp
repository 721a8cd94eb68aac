// SPDX-License-Identifier: MIT
#include "standin/mel/functions.h"

#include "standin/mel/runtime.h"

#include <cmath>

namespace mel {

namespace {

double between(const Arguments &call, const std::string &stream, double low, double high)
{
    return low + (high - low) * call.runtime.random.uniform(stream);
}

// One after the other, since the order of arguments' evaluation is not defined.
Vector between(const Arguments &call, const std::string &stream, const Vector &low,
               const Vector &high)
{
    Vector drawn;
    drawn.x = between(call, stream, low.x, high.x);
    drawn.y = between(call, stream, low.y, high.y);
    drawn.z = between(call, stream, low.z, high.z);
    return drawn;
}

// rand([stream,] [low,] high) with numbers or vectors.
template <typename Bound, bool hasStream>
Value rand(const Arguments &call)
{
    const std::string stream = hasStream ? call.text(0) : std::string();
    const bool hasLow = call.count() == (hasStream ? 3 : 2);
    const Bound &high = as<Bound>(call.value(call.count() - 1));
    const Bound low = hasLow ? as<Bound>(call.value(call.count() - 2)) : Bound();
    return between(call, stream, low, high);
}

Value seed(const Arguments &call)
{
    call.runtime.random.seed(static_cast<unsigned>(call.integer(0)));
    return call.integer(0);
}

// The argument is the standard deviation.
Value gauss(const Arguments &call)
{
    return call.number(0) * call.runtime.random.normal();
}

// A point within a sphere, all of its volume equally likely.
Value sphrand(const Arguments &call)
{
    constexpr double turn = 2 * 3.14159265358979323846;
    RandomStreams &random = call.runtime.random;
    const double height = 2 * random.uniform() - 1;
    const double angle = turn * random.uniform();
    // The cube root, as most of a sphere's volume lies far from its centre.
    const double radius = call.number(0) * std::cbrt(random.uniform());
    const double ring = radius * std::sqrt(1 - height * height);
    return Vector{ring * std::cos(angle), ring * std::sin(angle), radius * height};
}

const Function rows[] = {
    {"rand", "f:f", rand<double, false>},
    {"rand", "v:v", rand<Vector, false>},
    {"rand", "f:ff", rand<double, false>},
    {"rand", "v:vv", rand<Vector, false>},
    {"rand", "f:sf", rand<double, true>},
    {"rand", "v:sv", rand<Vector, true>},
    {"rand", "f:sff", rand<double, true>},
    {"rand", "v:svv", rand<Vector, true>},
    {"seed", "i:i", seed},
    {"gauss", "f:f", gauss},
    {"sphrand", "v:f", sphrand},
};

} // namespace

FunctionTable randomFunctions()
{
    return {rows, std::size(rows)};
}

} // namespace mel
