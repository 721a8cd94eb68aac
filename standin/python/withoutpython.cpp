// SPDX-License-Identifier: MIT
#include "standin/python/python.h"

namespace standin {

// Linked in place of the engine when no Python was found. Silent: the session says so when a script
// asks for Python.
std::unique_ptr<PythonEngine> createPythonEngine(HostServices &, mel::Interpreter &)
{
    return nullptr;
}

} // namespace standin
