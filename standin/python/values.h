// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/value.h"
#include "standin/python/pyref.h"

#include <optional>
#include <string>

namespace standin {

// Values as they cross between Python and MEL. Functions that can fail leave a Python exception and
// return null or none. The GIL is held; objects given are borrowed, text is UTF-8.

// Arrays and vectors become lists, a matrix one flat list, void None.
PyRef toPython(const mel::Value &value);

// Lone surrogates and other characters without a UTF-8 form become escapes.
std::string toUtf8(PyObject *text);
// Bytes that are not UTF-8 become U+FFFD.
PyRef textObject(const std::string &utf8);
// A function's argument that must be text; false with a TypeError set when it is none.
bool readText(PyObject *argument, std::string &text);

// str() of an object as UTF-8; none when its __str__ fails.
std::optional<std::string> strText(PyObject *object);

// Lists and tuples become arrays: of int or float when all elements are, else of strings; an empty
// one has strings. None becomes no value. An int too large for MEL and whatever it has no type for
// become their string form; so none only when a __str__ fails.
std::optional<mel::Value> toMel(PyObject *object);

} // namespace standin
