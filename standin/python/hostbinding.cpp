// SPDX-License-Identifier: MIT
#include "standin/python/hostbinding.h"

#include <thread>

namespace standin {
namespace {

// Both guarded by the GIL.
HostBinding *currentBinding = nullptr;
std::thread::id mainThread;

} // namespace

HostBinding *HostBinding::current()
{
    return currentBinding;
}

void HostBinding::setCurrent(HostBinding *binding)
{
    currentBinding = binding;
    mainThread = std::this_thread::get_id();
}

bool onMainThread()
{
    return std::this_thread::get_id() == mainThread;
}

HostBinding *bindingOnMainThread()
{
    if (!currentBinding) {
        PyErr_SetString(PyExc_RuntimeError, "The host has been closed.");
        return nullptr;
    }
    // Widgets and the interpreter belong to the main thread; the text says what to do instead.
    if (!onMainThread()) {
        PyErr_SetString(PyExc_RuntimeError,
                        "Commands run on the main thread only; use "
                        "maya.utils.executeInMainThreadWithResult or executeDeferred.");
        return nullptr;
    }
    return currentBinding;
}

void sendMessage(mel::MessageKind kind, const std::string &text)
{
    // Prints of threads that outlive the session go nowhere.
    HostBinding *binding = currentBinding;
    if (!binding)
        return;
    // On another thread the lock is kept: it is what keeps the engine from going away meanwhile.
    if (!onMainThread()) {
        binding->host.output(kind, text);
        return;
    }
    // Callbacks of plug-ins run below, and may wait for another thread of Python.
    const GilRelease others;
    binding->host.output(kind, text);
}

} // namespace standin
