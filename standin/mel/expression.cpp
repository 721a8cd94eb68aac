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

void Expression::evalText(Frame &frame, std::string &text) const
{
    Value value = eval(frame);
    text = std::move(as<std::string>(value));
}

std::string Expression::asText(Frame &frame) const
{
    if (m_type != Type::String)
        return toString(eval(frame));
    std::string text;
    evalText(frame, text);
    return text;
}

// A number or text never becomes a Value of its own on its way.
void Expression::evalInto(Value &place, Frame &frame) const
{
    switch (m_type) {
    case Type::Int:
        place = evalInt(frame);
        break;
    case Type::Float:
        place = evalFloat(frame);
        break;
    case Type::String:
        if (typeOf(place) != Type::String)
            place.emplace<std::string>();
        evalText(frame, *std::get_if<std::string>(&place));
        break;
    default:
        place = eval(frame);
    }
}

// Toward zero, and to the nearest int beyond the range.
int FloatExpression::evalInt(Frame &frame) const
{
    return truncate(evalFloat(frame));
}

void Target::assign(Frame &frame, Index index, const Expression &expression) const
{
    Value value = expression.eval(frame);
    // A void call is only found out here when its type was dynamic.
    if (isVoid(value))
        failConversion(Type::Void, type() == Type::Dynamic ? Type::Int : type());
    store(frame, index, std::move(value));
}

} // namespace mel
