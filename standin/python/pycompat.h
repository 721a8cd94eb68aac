// SPDX-License-Identifier: MIT
#pragma once

#include "standin/python/pyref.h"

#include <string>

namespace standin {

// What differs between the C interfaces of Python 2.7 and 3. The source file is the only one that
// asks for the version. The GIL is held everywhere, but for startPython(), which takes it.

// Starts Python with the GIL held; false and a reason when it cannot start.
bool startPython(std::string &error);

// Makes a module of C functions importable; a borrowed reference, null on failure. `name` and
// `functions` are referred to for the life of the process. For one module only.
PyObject *addBuiltinModule(const char *name, PyMethodDef *functions);

// What compile() takes for a text of UTF-8; null with an exception set when it is no UTF-8.
PyRef sourceObject(const std::string &utf8);

PyRef integerObject(int number);  // of the type that the literal has
bool isInteger(PyObject *object); // booleans included
bool isText(PyObject *object);    // byte strings included where they are what a literal makes

// All three are null when no exception was set.
struct RaisedException
{
    PyRef type;
    PyRef value;
    PyRef traceback; // may be none
};

// The exception that is set, complete; it is cleared.
RaisedException takeRaisedException();

} // namespace standin
