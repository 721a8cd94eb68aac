// SPDX-License-Identifier: MIT
#include "standin/python/pycall.h"

namespace standin {

PyRef call(PyObject *callable, std::initializer_list<PyObject *> arguments)
{
    const PyRef tuple(PyTuple_New(static_cast<Py_ssize_t>(arguments.size())));
    if (!callable || !tuple)
        return PyRef();
    Py_ssize_t index = 0;
    for (PyObject *argument : arguments)
        // The tuple takes over one reference of each.
        PyTuple_SET_ITEM(tuple.get(), index++, PyRef::borrowed(argument).release());
    return PyRef(PyObject_CallObject(callable, tuple.get()));
}

PyRef callUtils(const char *function, std::initializer_list<PyObject *> arguments)
{
    const PyRef utils(PyImport_ImportModule("maya.utils"));
    const PyRef callable(utils ? PyObject_GetAttrString(utils.get(), function) : nullptr);
    return call(callable.get(), arguments);
}

PyRef callBuiltin(const char *function, std::initializer_list<PyObject *> arguments)
{
    // Borrowed, and sets no exception when it is missing.
    PyObject *callable = PyDict_GetItemString(PyEval_GetBuiltins(), function);
    if (!callable)
        PyErr_Format(PyExc_NameError, "the builtin function %s is missing", function);
    return call(callable, arguments);
}

} // namespace standin
