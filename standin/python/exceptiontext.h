// SPDX-License-Identifier: MIT
#pragma once

#include "standin/python/pyref.h"

#include <string>

namespace standin {

// The text that reports an uncaught exception, as maya.utils formats it: one line, or the trace as
// well. UTF-8. Arguments are borrowed and never null, None at least. Never leaves an exception
// behind, whatever the formatting does: scripts may have replaced it.
std::string exceptionText(PyObject *type, PyObject *value, PyObject *traceback, bool withTrace);

// The same for the exception that is set, which is cleared.
std::string takeExceptionText(bool withTrace);

} // namespace standin
