// SPDX-License-Identifier: MIT
#pragma once

#include "standin/python/pyref.h"

#include <initializer_list>

namespace standin {

// Calls with borrowed arguments; null with an exception set on failure.
PyRef call(PyObject *callable, std::initializer_list<PyObject *> arguments);

// Calls a function of the module maya.utils.
PyRef callUtils(const char *function, std::initializer_list<PyObject *> arguments);

// Calls a function of Python's own, whatever scripts have made of its name in their variables.
PyRef callBuiltin(const char *function, std::initializer_list<PyObject *> arguments);

} // namespace standin
