// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/interpreter.h"

#include <string>

namespace standin {

// The embedded Python as the session sees it; absent when the host was built without one. An
// interface, so that the host is built without Python's headers. Main thread only but for
// interrupt(). Texts are UTF-8.
class PythonEngine
{
public:
    virtual ~PythonEngine() = default;

    // Runs the text in __main__. A single expression yields its value; with `display` the text is
    // echoed as a History message and the value's repr follows as a Result message. Never throws.
    virtual mel::Outcome execute(const std::string &text, bool display) = 0;

    // Stops the running script with KeyboardInterrupt; callable from any thread.
    virtual void interrupt() = 0;
};

} // namespace standin
