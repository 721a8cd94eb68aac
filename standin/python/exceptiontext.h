// SPDX-License-Identifier: MIT
#pragma once

#include "standin/python/pyref.h"

#include <string>

namespace standin {

// The text that reports an uncaught exception, as maya.utils formats it: one line, or the trace as
// well. Never leaves an exception behind.
std::string exceptionText(PyObject *type, PyObject *value, PyObject *traceback, bool withTrace);

// The same for the exception that is set, which is cleared.
std::string takeExceptionText(bool withTrace);

} // namespace standin
