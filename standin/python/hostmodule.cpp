// SPDX-License-Identifier: MIT
#include "standin/python/hostmodule.h"

#include "standin/python/commandfunctions.h"
#include "standin/python/exceptiontext.h"
#include "standin/python/globalfunctions.h"
#include "standin/python/hostbinding.h"
#include "standin/python/pycompat.h"
#include "standin/python/values.h"

namespace standin {
namespace {

// A new reference, as functions have to return.
PyObject *none()
{
    return PyRef::borrowed(Py_None).release();
}

// The value, or an exception whose text begins with the prefix.
PyObject *outcomeObject(const mel::Outcome &outcome, const std::string &errorPrefix)
{
    if (outcome.ok)
        return toPython(outcome.value).release();
    PyErr_SetString(PyExc_RuntimeError, (errorPrefix + outcome.error).c_str());
    return nullptr;
}

// message(kind, text)
PyObject *message(PyObject *, PyObject *arguments)
{
    int kind = 0;
    PyObject *object = nullptr;
    std::string text;
    if (!PyArg_ParseTuple(arguments, "iO:message", &kind, &object) || !readText(object, text))
        return nullptr;
    // The number comes from Python and is about to become an enumerator.
    if (kind < 0 || kind > static_cast<int>(mel::MessageKind::StackTrace)) {
        PyErr_SetString(PyExc_ValueError, "no such kind of message");
        return nullptr;
    }
    sendMessage(static_cast<mel::MessageKind>(kind), text);
    return none();
}

// reportException(type, value, traceback)
PyObject *reportException(PyObject *, PyObject *arguments)
{
    PyObject *type = nullptr;
    PyObject *value = nullptr;
    PyObject *traceback = nullptr;
    if (!PyArg_ParseTuple(arguments, "OOO:reportException", &type, &value, &traceback))
        return nullptr;
    HostBinding *binding = HostBinding::current();
    // As MEL's errors, by the one switch of the session.
    const bool withTrace = binding && binding->mel.settings().stackTrace;
    sendMessage(mel::MessageKind::Error, exceptionText(type, value, traceback, withTrace));
    return none();
}

// eval(text): errors are reported by MEL and raised here.
PyObject *evalMel(PyObject *, PyObject *argument)
{
    std::string text;
    HostBinding *binding = bindingOnMainThread();
    mel::Outcome outcome;
    if (!binding || !readText(argument, text) ||
        !callHost([&] { outcome = binding->mel.execute(text); }))
        return nullptr;
    return outcomeObject(outcome, "Error occurred during execution of MEL script\n");
}

// executeOnIdle(text): Python, from any thread
PyObject *executeOnIdle(PyObject *, PyObject *argument)
{
    std::string text;
    if (!readText(argument, text))
        return nullptr;
    if (HostBinding *binding = HostBinding::current())
        binding->host.executePythonOnIdle(text, false);
    return none();
}

PyObject *processIdle(PyObject *, PyObject *)
{
    HostBinding *binding = bindingOnMainThread();
    if (!binding || !callHost([&] { binding->host.processIdle(); }))
        return nullptr;
    return none();
}

PyObject *isBatch(PyObject *, PyObject *)
{
    HostBinding *binding = HostBinding::current();
    // Without a host nothing can be waited for, as in a batch session.
    return PyBool_FromLong(!binding || binding->host.isBatch());
}

PyObject *isMainThread(PyObject *, PyObject *)
{
    return PyBool_FromLong(onMainThread());
}

PyObject *commandNames(PyObject *, PyObject *)
{
    HostBinding *binding = HostBinding::current();
    // An incomplete answer rather than none: this serves dir(), which must not fail.
    if (!binding || !onMainThread())
        return PyList_New(0);
    return toPython(mel::Value(binding->mel.commandNames())).release();
}

// On other threads any name will do: the commands belong to the main thread, where the function
// will have to be called.
bool hasCommand(const std::string &name)
{
    HostBinding *binding = HostBinding::current();
    return binding && (onMainThread() ? binding->mel.command(name) != nullptr : name[0] != '_');
}

// commandAttribute(name): the attribute of maya.cmds
PyObject *commandAttribute(PyObject *, PyObject *argument)
{
    std::string name;
    if (!readText(argument, name))
        return nullptr;
    if (hasCommand(name))
        return commandFunction(name).release();
    if (name == "__all__")
        return commandNames(nullptr, nullptr);
    PyErr_Format(PyExc_AttributeError, "module 'maya.cmds' has no attribute '%s'", name.c_str());
    return nullptr;
}

void *findInterface(InterfaceLookup &lookup, const std::string &kind, const std::string &name)
{
    if (kind == "control")
        return lookup.findControl(name);
    if (kind == "layout")
        return lookup.findLayout(name);
    if (kind == "window")
        return lookup.findWindow(name);
    if (kind == "menuItem")
        return lookup.findMenuItem(name);
    // The only kind left; the name is not looked at.
    return lookup.mainWindow();
}

// interfaceAddress(kind, name): what a binding of Qt wraps, None when there is no such element
PyObject *interfaceAddress(PyObject *, PyObject *arguments)
{
    const char *kind = nullptr;
    PyObject *object = nullptr;
    std::string name;
    HostBinding *binding = bindingOnMainThread();
    if (!binding || !PyArg_ParseTuple(arguments, "sO:interfaceAddress", &kind, &object) ||
        !readText(object, name))
        return nullptr;
    InterfaceLookup *lookup = binding->host.interfaceLookup();
    void *address = lookup ? findInterface(*lookup, kind, name) : nullptr;
    // A number and no object: which binding of Qt wraps it is the script's choice.
    return address ? PyLong_FromVoidPtr(address) : none();
}

PyMethodDef functions[] = {
    {"message", message, METH_VARARGS, nullptr},
    {"reportException", reportException, METH_VARARGS, nullptr},
    {"eval", evalMel, METH_O, "Runs MEL text and returns the value of its last statement."},
    {"executeOnIdle", executeOnIdle, METH_O, nullptr},
    {"processIdle", processIdle, METH_NOARGS, nullptr},
    {"isBatch", isBatch, METH_NOARGS, nullptr},
    {"isMainThread", isMainThread, METH_NOARGS, nullptr},
    {"commandAttribute", commandAttribute, METH_O, nullptr},
    {"commandNames", commandNames, METH_NOARGS, nullptr},
    {"interfaceAddress", interfaceAddress, METH_VARARGS, nullptr},
    {nullptr, nullptr, 0, nullptr},
};

} // namespace

bool addHostModule()
{
    PyObject *module = addBuiltinModule("_standin", functions);
    return module && addGlobalFunctions(module);
}

} // namespace standin
