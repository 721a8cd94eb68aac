// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/value.h"
#include "standin/python/pyref.h"

#include <optional>
#include <string>

namespace standin {

// Values as they cross between Python and MEL. Functions that can fail leave a Python exception.

PyRef toPython(const mel::Value &value);

// Lone surrogates and other characters without a UTF-8 form become escapes.
std::string toUtf8(PyObject *text);
PyRef textObject(const std::string &utf8);
// A function's argument that must be text; false with a TypeError set when it is none.
bool readText(PyObject *argument, std::string &text);

// str() of an object as UTF-8; none when its __str__ fails.
std::optional<std::string> strText(PyObject *object);

// Lists and tuples become arrays: of int or float when all elements are, else of strings. None
// becomes no value, and whatever MEL has no type for its string form.
std::optional<mel::Value> toMel(PyObject *object);

} // namespace standin
