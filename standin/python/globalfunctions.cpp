// SPDX-License-Identifier: MIT
#include "standin/python/globalfunctions.h"

#include "standin/python/hostbinding.h"
#include "standin/python/values.h"

namespace standin {
namespace {

// What the functions that execute MEL are called with.
struct Request
{
    std::string text;
    bool display = false;
};

// (command, displayEnabled=False, undoEnabled=False); nothing can be undone here.
bool readRequest(PyObject *arguments, PyObject *keywords, Request &request)
{
    // The keywords that scripts know from the application.
    static const char *const names[] = {"command", "displayEnabled", "undoEnabled", nullptr};
    PyObject *command = nullptr;
    int display = 0;
    int undo = 0;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "O|ii", const_cast<char **>(names),
                                     &command, &display, &undo))
        return false;
    request.display = display != 0;
    return readText(command, request.text);
}

// Runs the requested MEL. False with an exception set when it fails.
bool execute(PyObject *arguments, PyObject *keywords, mel::Value &value)
{
    Request request;
    HostBinding *binding = bindingOnMainThread();
    mel::Outcome outcome;
    // In this order: without a host the arguments do not matter.
    if (!binding || !readRequest(arguments, keywords, request) ||
        !callHost([&] { outcome = binding->host.executeMel(request.text, request.display); }))
        return false;
    if (!outcome.ok)
        // The error has been reported already; the exception stops the script that asked.
        PyErr_SetString(PyExc_RuntimeError, outcome.error.c_str());
    value = outcome.value;
    return outcome.ok;
}

PyObject *executeCommand(PyObject *, PyObject *arguments, PyObject *keywords)
{
    mel::Value value;
    if (!execute(arguments, keywords, value))
        return nullptr;
    Py_RETURN_NONE;
}

PyObject *executeCommandStringResult(PyObject *, PyObject *arguments, PyObject *keywords)
{
    mel::Value value;
    if (!execute(arguments, keywords, value))
        return nullptr;
    return textObject(mel::resultText(value)).release();
}

// From any thread.
PyObject *executeCommandOnIdle(PyObject *, PyObject *arguments, PyObject *keywords)
{
    Request request;
    if (!readRequest(arguments, keywords, request))
        return nullptr;
    // Without a host there is no idle time left, and nobody to tell.
    if (HostBinding *binding = HostBinding::current())
        binding->host.executeMelOnIdle(request.text, request.display);
    Py_RETURN_NONE;
}

PyObject *sourceFile(PyObject *, PyObject *argument)
{
    std::string path;
    HostBinding *binding = bindingOnMainThread();
    mel::Outcome outcome;
    if (!binding || !readText(argument, path) ||
        !callHost([&] { outcome = binding->host.sourceFile(path); }))
        return nullptr;
    if (outcome.ok)
        Py_RETURN_NONE;
    PyErr_SetString(PyExc_RuntimeError, outcome.error.c_str());
    return nullptr;
}

template <mel::MessageKind kind>
PyObject *display(PyObject *, PyObject *argument)
{
    std::string text;
    if (!readText(argument, text))
        return nullptr;
    sendMessage(kind, text);
    Py_RETURN_NONE;
}

// The type that the table wants; METH_KEYWORDS says how the function is really called.
PyCFunction withKeywords(PyObject *(*function)(PyObject *, PyObject *, PyObject *))
{
    return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function));
}

// Python refers to the rows for as long as the functions live, so they are never copied.
PyMethodDef functions[] = {
    {"displayInfo", display<mel::MessageKind::Info>, METH_O, nullptr},
    {"displayWarning", display<mel::MessageKind::Warning>, METH_O, nullptr},
    {"displayError", display<mel::MessageKind::Error>, METH_O, nullptr},
    {"executeCommand", withKeywords(executeCommand), METH_VARARGS | METH_KEYWORDS, nullptr},
    {"executeCommandStringResult", withKeywords(executeCommandStringResult),
     METH_VARARGS | METH_KEYWORDS, nullptr},
    {"executeCommandOnIdle", withKeywords(executeCommandOnIdle), METH_VARARGS | METH_KEYWORDS,
     nullptr},
    {"sourceFile", sourceFile, METH_O, nullptr},
};

} // namespace

bool addGlobalFunctions(PyObject *module)
{
    for (PyMethodDef &definition : functions) {
        const PyRef function(PyCFunction_NewEx(&definition, nullptr, nullptr));
        if (!function || PyObject_SetAttrString(module, definition.ml_name, function.get()) != 0)
            return false;
    }
    return true;
}

} // namespace standin
