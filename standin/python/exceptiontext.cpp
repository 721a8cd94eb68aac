// SPDX-License-Identifier: MIT
#include "standin/python/exceptiontext.h"

#include "standin/python/pycall.h"
#include "standin/python/pycompat.h"
#include "standin/python/values.h"

namespace standin {
namespace {

// For the case that the formatting itself fails, for lack of memory say.
std::string bareName(PyObject *type)
{
    const PyRef name(PyObject_GetAttrString(type, "__name__"));
    PyErr_Clear();
    return name && isText(name.get()) ? toUtf8(name.get()) : "Unknown exception";
}

} // namespace

std::string exceptionText(PyObject *type, PyObject *value, PyObject *traceback, bool withTrace)
{
    // Borrowed: the two constants live for ever.
    PyObject *trace = withTrace ? Py_True : Py_False;
    const PyRef text = callUtils("_exceptionText", {type, value, traceback, trace});
    PyErr_Clear();
    return text && isText(text.get()) ? toUtf8(text.get()) : bareName(type);
}

std::string takeExceptionText(bool withTrace)
{
    const RaisedException raised = takeRaisedException();
    return exceptionText(raised.type.orNone(), raised.value.orNone(), raised.traceback.orNone(),
                         withTrace);
}

} // namespace standin
