// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/interpreter.h"
#include "standin/python/gil.h"
#include "standin/python/pyref.h"
#include "standin/sdk/hostservices.h"

#include <exception>
#include <string>

namespace standin {

// The host that Python code reaches through the modules of the `maya` package. Owned by the engine,
// one at a time. Read and changed with the GIL held only.
struct HostBinding
{
    HostServices &host;
    mel::Interpreter &mel;

    // Null once the engine is gone; threads of scripts may go on for a while.
    static HostBinding *current();
    static void setCurrent(HostBinding *binding); // the calling thread becomes the main thread
};

// Whether the calling thread is the one that owns the host.
bool onMainThread();

// The binding, or null with a RuntimeError set when there is none or on another thread.
HostBinding *bindingOnMainThread();

// Sends a message, from any thread; forgotten when there is no binding.
void sendMessage(mel::MessageKind kind, const std::string &text);

// Runs a C++ function with the GIL released; a C++ exception becomes a RuntimeError, for nothing
// may be thrown through Python's frames. False when an exception is set.
template <typename Function>
bool callHost(Function function)
{
    std::string error;
    try {
        const GilRelease others;
        function();
        return true;
    } catch (const std::exception &exception) {
        error = exception.what();
    }
    PyErr_SetString(PyExc_RuntimeError, error.c_str());
    return false;
}

} // namespace standin
