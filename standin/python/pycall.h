// SPDX-License-Identifier: MIT
#pragma once

#include "standin/python/pyref.h"

#include <initializer_list>

namespace standin {

// Calls with borrowed arguments, none of them null; null with an exception set on failure. A null
// callable is a failure whose exception is set already, so that look-ups need no check of their
// own.
PyRef call(PyObject *callable, std::initializer_list<PyObject *> arguments);

// Calls a function of the module maya.utils, as it is now: scripts may have replaced it.
PyRef callUtils(const char *function, std::initializer_list<PyObject *> arguments);

// Calls a function of Python's own, whatever scripts have made of its name in their variables.
PyRef callBuiltin(const char *function, std::initializer_list<PyObject *> arguments);

} // namespace standin
