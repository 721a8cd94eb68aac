// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/value.h"

#include <maya/MArgList.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <string>

namespace standin {

// Between the API's text and the interpreter's; null bytes survive both ways.
inline std::string utf8(const MString &text)
{
    int length = 0;
    const char *bytes = text.asUTF8(length);
    return std::string(bytes, static_cast<size_t>(length));
}

inline MString apiString(const std::string &text)
{
    return MString(text.data(), static_cast<int>(text.size()));
}

mel::StringArray utf8List(const MStringArray &texts);

// Each is true, and sets the result, only if the value is of the wanted type. An int is taken for
// a double as well, and an empty array for an array of any type.
bool convert(const mel::Value &value, int &result);
bool convert(const mel::Value &value, double &result);
bool convert(const mel::Value &value, MString &result);
bool convert(const mel::Value &value, MIntArray &result);
bool convert(const mel::Value &value, MDoubleArray &result);
bool convert(const mel::Value &value, MStringArray &result);
// Takes the texts over, as a list may hold thousands of names.
bool convert(mel::Value &&value, MStringArray &result);

// A string as it is, a number as text; false for anything else.
bool convertToText(const mel::Value &value, MString &result);

// One word of a command line; what is neither number nor text becomes nothing.
void addWord(MArgList &arguments, const mel::Value &word);

} // namespace standin
