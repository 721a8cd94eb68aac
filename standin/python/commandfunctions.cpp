// SPDX-License-Identifier: MIT
#include "standin/python/commandfunctions.h"

#include "standin/python/commandwords.h"
#include "standin/python/hostbinding.h"
#include "standin/python/values.h"

#include <map>

namespace standin {
namespace {

PyRef resultOf(const mel::Value &value, bool yesOrNo)
{
    const int *number = std::get_if<int>(&value);
    if (number && yesOrNo)
        return PyRef(PyBool_FromLong(*number));
    return toPython(value);
}

// What all functions of maya.cmds are; `self` is the command's name.
PyObject *runCommand(PyObject *self, PyObject *arguments, PyObject *keywords)
{
    HostBinding *binding = bindingOnMainThread();
    if (!binding)
        return nullptr;
    const std::string name = toUtf8(self);
    // Looked up by name at every call: plug-ins take their commands away.
    const mel::Command *command = binding->mel.command(name);
    if (!command) {
        PyErr_Format(PyExc_RuntimeError, "Cannot find procedure \"%s\".", name.c_str());
        return nullptr;
    }
    const std::optional<std::vector<mel::Value>> words =
        commandWords(*command, arguments, keywords);
    if (!words)
        return nullptr;
    // Asked first: the command may remove itself.
    const bool yesOrNo = answersYesOrNo(*command, keywords);
    mel::Value value;
    // Without the GIL, so that other threads of Python go on while the command works.
    if (!callHost([&] { value = binding->mel.runCommand(name, *words); }))
        return nullptr;
    return resultOf(value, yesOrNo).release();
}

// Functions keep pointing to their definitions, and scripts may keep functions for ever.
PyMethodDef &definitionOf(const std::string &name)
{
    static auto &definitions = *new std::map<std::string, PyMethodDef>;
    const auto [entry, isNew] = definitions.try_emplace(name);
    if (isNew) {
        // Through a function pointer without types: the cast from one with keywords is no safe one
        // to the compiler, and the flags below tell Python how to call it.
        const auto function =
            reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(runCommand));
        entry->second = {entry->first.c_str(), function, METH_VARARGS | METH_KEYWORDS, nullptr};
    }
    return entry->second;
}

} // namespace

PyRef commandFunction(const std::string &name)
{
    const PyRef self = textObject(name);
    const PyRef module = textObject("maya.cmds");
    if (!self || !module)
        return PyRef();
    return PyRef(PyCFunction_NewEx(&definitionOf(name), self.get(), module.get()));
}

} // namespace standin
