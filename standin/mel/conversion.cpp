// SPDX-License-Identifier: MIT
#include "standin/mel/conversion.h"

#include "standin/mel/command.h"
#include "standin/mel/number.h"
#include "standin/mel/vectormath.h"

namespace mel {

namespace {

// Types that convert to each other without exception; int to vector lie together in Type.
bool isScalar(Type type)
{
    return type >= Type::Int && type <= Type::Vector;
}

// A leading number is enough and no reason to warn: "3.14abc" is 3.14.
double numberIn(const std::string &text, const char *kind, WarningSink &warnings)
{
    const LeadingNumber number = leadingNumber(text);
    if (!number.found)
        warnings.warning("Converting string \"" + text + "\" to " + kind + " value of 0.");
    return number.value;
}

// Up to three numbers, with or without the signs of a vector literal.
// What is missing stays 0, without a warning.
Vector vectorIn(const std::string &text)
{
    double parts[3] = {0, 0, 0};
    size_t at = 0;
    for (double &part : parts) {
        at = text.find_first_not_of("<, \t\n", at);
        if (at == std::string::npos)
            break;
        const LeadingNumber number = leadingNumber(std::string_view(text).substr(at));
        if (!number.found)
            break;
        part = number.value;
        at += number.length;
    }
    return {parts[0], parts[1], parts[2]};
}

// Element by element, toward zero.
IntArray toInts(const FloatArray &floats)
{
    std::vector<int> ints;
    ints.reserve(floats.size());
    for (const double number : floats)
        ints.push_back(truncate(number));
    return ints;
}

// The matrix form of a vector is one row.
Matrix rowOf(const Vector &vector)
{
    return {1, 3, {vector.x, vector.y, vector.z}};
}

} // namespace

// A float[] fits a vector by its type; whether it has three elements shows at run time.
bool canConvert(Type from, Type to)
{
    if (from == Type::Void)
        return false;
    if (from == to || from == Type::Dynamic || to == Type::Dynamic)
        return true;
    if (isScalar(from) && isScalar(to))
        return true;
    // Arrays convert element by element, but only between int[] and float[].
    const std::pair<Type, Type> others[] = {
        {Type::Matrix, Type::String}, {Type::Vector, Type::Matrix}, {Type::Ints, Type::Floats},
        {Type::Floats, Type::Ints},   {Type::Floats, Type::Vector},
    };
    for (const auto &pair : others) {
        if (pair.first == from && pair.second == to)
            return true;
    }
    return false;
}

void failConversion(Type from, Type to)
{
    throw RuntimeError(std::string("Cannot convert data of type ") + typeName(from) + " to type " +
                       typeName(to) + ".");
}

int toInt(const Value &value, WarningSink &warnings)
{
    switch (typeOf(value)) {
    case Type::Int:
        return std::get<int>(value);
    case Type::Float:
        return truncate(std::get<double>(value));
    case Type::String:
        return truncate(numberIn(std::get<std::string>(value), "an int", warnings));
    case Type::Vector:
        return truncate(magnitude(std::get<Vector>(value)));
    default:
        failConversion(typeOf(value), Type::Int);
    }
}

double toFloat(const Value &value, WarningSink &warnings)
{
    switch (typeOf(value)) {
    case Type::Int:
        return std::get<int>(value);
    case Type::Float:
        return std::get<double>(value);
    case Type::String:
        return numberIn(std::get<std::string>(value), "a float", warnings);
    case Type::Vector:
        return magnitude(std::get<Vector>(value));
    default:
        failConversion(typeOf(value), Type::Float);
    }
}

// Arrays print, yet they are no texts: joining them by accident would hide a mistake.
std::string toString(const Value &value)
{
    const Type type = typeOf(value);
    if (type == Type::Void || isArray(type))
        failConversion(type, Type::String);
    return printText(value);
}

Vector toVector(const Value &value, WarningSink &warnings)
{
    if (const Vector *vector = std::get_if<Vector>(&value))
        return *vector;
    if (const std::string *text = std::get_if<std::string>(&value))
        return vectorIn(*text);
    const FloatArray *floats = std::get_if<FloatArray>(&value);
    if (floats && floats->size() == 3)
        return {(*floats)[0], (*floats)[1], (*floats)[2]};
    if (!isNumber(typeOf(value)))
        failConversion(typeOf(value), Type::Vector);
    const double number = toFloat(value, warnings);
    return {number, number, number};
}

// Everything but zero is true, 0.5 included; a vector counts by its length.
bool isTrue(const Value &value, WarningSink &warnings)
{
    if (const int *number = std::get_if<int>(&value))
        return *number != 0;
    return toFloat(value, warnings) != 0;
}

Value convert(Value value, Type to, WarningSink &warnings)
{
    const Type from = typeOf(value);
    if (from == to)
        return value;
    if (!canConvert(from, to))
        failConversion(from, to);
    switch (to) {
    case Type::Int:
        return toInt(value, warnings);
    case Type::Float:
        return toFloat(value, warnings);
    case Type::String:
        return toString(value);
    case Type::Vector:
        return toVector(value, warnings);
    case Type::Matrix:
        return rowOf(std::get<Vector>(value));
    case Type::Ints:
        return toInts(std::get<FloatArray>(value));
    case Type::Floats: {
        const IntArray &ints = std::get<IntArray>(value);
        return std::vector<double>(ints.begin(), ints.end());
    }
    default:
        return value;
    }
}

// Case matters: "True" is an ordinary word.
int booleanWord(const std::string &word)
{
    if (word == "true" || word == "on" || word == "yes")
        return 1;
    return word == "false" || word == "off" || word == "no" ? 0 : -1;
}

} // namespace mel
