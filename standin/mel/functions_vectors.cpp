// SPDX-License-Identifier: MIT
#include "standin/mel/functions.h"

#include "standin/mel/runtime.h"
#include "standin/mel/vectormath.h"

#include <algorithm>
#include <cmath>

namespace mel {

namespace {

Vector scaled(const Vector &v, double by)
{
    return {v.x * by, v.y * by, v.z * by};
}

Vector sum(const Vector &a, const Vector &b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

// The zero vector has no direction and stays as it is.
Vector normalised(const Vector &v)
{
    const double length = magnitude(v);
    return length > 0 ? scaled(v, 1 / length) : Vector();
}

Value mag(const Arguments &call)
{
    return magnitude(call.vector(0));
}

Value dot(const Arguments &call)
{
    return dotProduct(call.vector(0), call.vector(1));
}

Value cross(const Arguments &call)
{
    return crossProduct(call.vector(0), call.vector(1));
}

Value unit(const Arguments &call)
{
    return normalised(call.vector(0));
}

// In radians, from 0 to pi.
Value angle(const Arguments &call)
{
    const double cosine = dotProduct(normalised(call.vector(0)), normalised(call.vector(1)));
    // Rounding may carry the cosine just beyond 1, where acos is undefined.
    return std::acos(std::max(-1.0, std::min(1.0, cosine)));
}

// Turns a point about an axis through the origin, by the right-hand rule.
// The angle is in radians; the axis may have any length.
Value rot(const Arguments &call)
{
    const Vector &point = call.vector(0);
    const Vector axis = normalised(call.vector(1));
    const double cosine = std::cos(call.number(2));
    const double sine = std::sin(call.number(2));
    const Vector across = scaled(crossProduct(axis, point), sine);
    const Vector along = scaled(axis, dotProduct(axis, point) * (1 - cosine));
    return sum(sum(scaled(point, cosine), across), along);
}

const Function rows[] = {
    {"mag", "f:v", mag},   {"dot", "f:vv", dot},     {"cross", "v:vv", cross},
    {"unit", "v:v", unit}, {"angle", "f:vv", angle}, {"rot", "v:vvf", rot},
};

} // namespace

FunctionTable vectorFunctions()
{
    return {rows, std::size(rows)};
}

} // namespace mel
