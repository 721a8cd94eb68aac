// SPDX-License-Identifier: MIT
#include "standin/mel/expression.h"

#include "standin/mel/conversion.h"
#include "standin/mel/number.h"
#include "standin/mel/runtime.h"

namespace mel {

int Expression::evalInt(Frame &frame) const
{
    return toInt(eval(frame), frame.runtime);
}

double Expression::evalFloat(Frame &frame) const
{
    return toFloat(eval(frame), frame.runtime);
}

// Toward zero, and to the nearest int beyond the range.
int FloatExpression::evalInt(Frame &frame) const
{
    return truncate(evalFloat(frame));
}

} // namespace mel
