// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/value.h"

#include <cmath>

namespace mel {

// One place for operators and functions, so that "$a * $b" and "dot $a $b" agree to the last bit.
inline double dotProduct(const Vector &a, const Vector &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

// By the right-hand rule.
inline Vector crossProduct(const Vector &a, const Vector &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double magnitude(const Vector &vector)
{
    return std::sqrt(dotProduct(vector, vector));
}

} // namespace mel
