// SPDX-License-Identifier: MIT
#include "standin/mel/expression.h"

#include "standin/mel/conversion.h"
#include "standin/mel/number.h"
#include "standin/mel/runtime.h"

namespace mel {

Frame::Frame(Runtime &owner, const std::vector<Value> &initial, SourcePointer text,
             size_t filledByCaller)
    : runtime(owner), slots(new Slot[initial.size()]), source(std::move(text))
{
    for (size_t i = filledByCaller; i < initial.size(); ++i)
        slots[i].value = initial[i];
}

int Expression::evalInt(Frame &frame) const
{
    return toInt(eval(frame), frame.runtime);
}

double Expression::evalFloat(Frame &frame) const
{
    return toFloat(eval(frame), frame.runtime);
}

int FloatExpression::evalInt(Frame &frame) const
{
    return truncate(evalFloat(frame));
}

} // namespace mel
