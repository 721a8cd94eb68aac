// SPDX-License-Identifier: MIT
#include "standin/sdk/convert.h"

#include "standin/sdk/standinaccess.h"

#include <variant>

namespace standin {

namespace {

// Of whatever type; false for anything that is no array.
bool isEmptyArray(const mel::Value &value)
{
    const auto isEmpty = [](const auto *items) { return items && items->empty(); };
    return isEmpty(std::get_if<mel::IntArray>(&value)) ||
           isEmpty(std::get_if<mel::FloatArray>(&value)) ||
           isEmpty(std::get_if<mel::StringArray>(&value)) ||
           isEmpty(std::get_if<mel::VectorArray>(&value));
}

// Replaces the array if the value has items of its kind, or none at all: an empty array has no type
// that a script could see.
template <class Items, class ApiArray, class Convert>
bool copyItems(const mel::Value &value, ApiArray &result, Convert convertItem)
{
    // The status of the API's calls depends on it, so a wrong type leaves the result as it was.
    const Items *items = std::get_if<Items>(&value);
    if (!items && !isEmptyArray(value))
        return false;
    result.clear();
    if (items) {
        for (const auto &item : *items)
            result.append(convertItem(item));
    }
    return true;
}

} // namespace

mel::StringArray utf8List(const MStringArray &texts)
{
    std::vector<std::string> list;
    for (unsigned int i = 0; i < texts.length(); ++i)
        list.push_back(utf8(texts[i]));
    return list;
}

// Deliberate: no other conversions than from int to double. A float for an int, or a number for a
// string, is a failed call.
bool convert(const mel::Value &value, int &result)
{
    const int *number = std::get_if<int>(&value);
    if (number)
        result = *number;
    return number;
}

bool convert(const mel::Value &value, double &result)
{
    int whole = 0;
    if (convert(value, whole)) {
        result = whole;
        return true;
    }
    const double *number = std::get_if<double>(&value);
    if (number)
        result = *number;
    return number;
}

bool convert(const mel::Value &value, MString &result)
{
    const std::string *text = std::get_if<std::string>(&value);
    if (text)
        result = apiString(*text);
    return text;
}

bool convert(const mel::Value &value, MIntArray &result)
{
    return copyItems<mel::IntArray>(value, result, [](int item) { return item; });
}

bool convert(const mel::Value &value, MDoubleArray &result)
{
    return copyItems<mel::FloatArray>(value, result, [](double item) { return item; });
}

bool convert(const mel::Value &value, MStringArray &result)
{
    return copyItems<mel::StringArray>(value, result, apiString);
}

bool convert(mel::Value &&value, MStringArray &result)
{
    auto *array = std::get_if<mel::StringArray>(&value);
    if (!array)
        return convert(static_cast<const mel::Value &>(value), result);
    std::vector<std::string> texts = array->take();
    result.clear();
    result.setLength(static_cast<unsigned int>(texts.size()));
    for (unsigned int i = 0; i < result.length(); ++i)
        StandinAccess::text(result[i]) = std::move(texts[i]);
    return true;
}

bool convertToText(const mel::Value &value, MString &result)
{
    // Numbers first; an int comes as a double, which is exact up to ten digits of text.
    double number = 0;
    if (!convert(value, number))
        return convert(value, result);
    result.set(number);
    return true;
}

void addWord(MArgList &arguments, const mel::Value &word)
{
    MString text;
    if (const int *number = std::get_if<int>(&word))
        arguments.addArg(*number); // exactly, where a double would round
    else if (convertToText(word, text))
        arguments.addArg(text);
}

} // namespace standin
