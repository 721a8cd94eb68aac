// SPDX-License-Identifier: MIT
#include "standin/python/pycompat.h"

namespace standin {

#if PY_MAJOR_VERSION >= 3

namespace {

PyStatus fillConfig(PyConfig &config)
{
    // Named outright, so that neither the PATH nor PYTHONHOME leads to another installation.
    PyStatus status =
        PyConfig_SetBytesString(&config, &config.program_name, STANDIN_PYTHON_EXECUTABLE);
    if (!PyStatus_Exception(status))
        status = PyConfig_SetBytesString(&config, &config.executable, STANDIN_PYTHON_EXECUTABLE);
    if (!PyStatus_Exception(status))
        status = PyConfig_SetBytesString(&config, &config.home, STANDIN_PYTHON_HOME);
    if (!PyStatus_Exception(status)) {
        wchar_t program[] = L"maya-standin";
        wchar_t *arguments[] = {program};
        status = PyConfig_SetArgv(&config, 1, arguments);
    }
    // The command line is the program's own.
    config.parse_argv = 0;
    // Ctrl+C belongs to the program, which interrupts scripts its own way.
    config.install_signal_handlers = 0;
    config.configure_c_stdio = 0; // the C streams belong to the host
    config.write_bytecode = 0;    // no files in folders that scripts are imported from
    return status;
}

PyStatus preInitialize()
{
    PyPreConfig config;
    PyPreConfig_InitPythonConfig(&config);
    config.configure_locale = 0; // the locale is the host's business
    config.coerce_c_locale = 0;
    // Files and streams are UTF-8, whatever the locale says.
    config.utf8_mode = 1;
    return Py_PreInitialize(&config);
}

} // namespace

bool startPython(std::string &error)
{
    PyStatus status = preInitialize();
    if (!PyStatus_Exception(status)) {
        PyConfig config;
        PyConfig_InitPythonConfig(&config);
        status = fillConfig(config);
        if (!PyStatus_Exception(status))
            status = Py_InitializeFromConfig(&config);
        // Also after a failure.
        PyConfig_Clear(&config);
    }
    if (PyStatus_Exception(status))
        error = status.err_msg ? status.err_msg : "unknown reason";
    return !PyStatus_Exception(status);
}

PyObject *addBuiltinModule(const char *name, PyMethodDef *functions)
{
    // Static: Python keeps the definition. So there can be only one module.
    static PyModuleDef definition = {
        PyModuleDef_HEAD_INIT, name, nullptr, -1, functions, nullptr, nullptr, nullptr, nullptr};
    const PyRef module(PyModule_Create(&definition));
    if (!module || PyDict_SetItemString(PyImport_GetModuleDict(), name, module.get()) != 0)
        return nullptr;
    // Stays alive in the table of modules.
    return module.get();
}

PyRef sourceObject(const std::string &utf8)
{
    return PyRef(PyUnicode_DecodeUTF8(utf8.data(), static_cast<Py_ssize_t>(utf8.size()), "strict"));
}

PyRef integerObject(int number)
{
    return PyRef(PyLong_FromLong(number));
}

bool isInteger(PyObject *object)
{
    return PyLong_Check(object);
}

bool isText(PyObject *object)
{
    return PyUnicode_Check(object);
}

#else

bool startPython(std::string &)
{
    // Static: Python 2 keeps the pointers, and wants them to be changeable.
    static char program[] = STANDIN_PYTHON_EXECUTABLE;
    static char home[] = STANDIN_PYTHON_HOME;
    static char argument[] = "maya-standin";
    static char *arguments[] = {argument};
    Py_SetProgramName(program);
    Py_SetPythonHome(home);
    Py_DontWriteBytecodeFlag = 1;
    // Without signal handlers.
    Py_InitializeEx(0);
    // Python 2 makes the GIL only when it is asked to.
    PyEval_InitThreads();
    PySys_SetArgvEx(1, arguments, 0);
    return true;
}

PyObject *addBuiltinModule(const char *name, PyMethodDef *functions)
{
    return Py_InitModule(name, functions);
}

PyRef sourceObject(const std::string &utf8)
{
    // The mark tells the compiler that the bytes are UTF-8 unless the text says otherwise.
    const std::string marked = "\xEF\xBB\xBF" + utf8;
    return PyRef(PyString_FromStringAndSize(marked.data(), static_cast<Py_ssize_t>(marked.size())));
}

PyRef integerObject(int number)
{
    return PyRef(PyInt_FromLong(number));
}

bool isInteger(PyObject *object)
{
    return PyInt_Check(object) || PyLong_Check(object);
}

bool isText(PyObject *object)
{
    return PyUnicode_Check(object) || PyString_Check(object);
}

#endif

#if PY_VERSION_HEX >= 0x030C0000

// From 3.12 on an exception is one object, whose type and traceback are parts of it.
RaisedException takeRaisedException()
{
    PyRef value(PyErr_GetRaisedException());
    PyObject *type = value ? reinterpret_cast<PyObject *>(Py_TYPE(value.get())) : nullptr;
    PyRef traceback(value ? PyException_GetTraceback(value.get()) : nullptr);
    return {PyRef::borrowed(type), std::move(value), std::move(traceback)};
}

#else

// Before, they are three, and complete only once they have been normalised.
RaisedException takeRaisedException()
{
    PyObject *type = nullptr;
    PyObject *value = nullptr;
    PyObject *traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    return {PyRef(type), PyRef(value), PyRef(traceback)};
}

#endif

} // namespace standin
