// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/pythonengine.h"

#include <memory>

namespace mel {
class Interpreter;
}

namespace standin {

class HostServices;

// The embedded Python; null when built without it, or when it cannot start, which is reported as
// an Error message. One at a time, on the main thread. Both arguments outlive the engine.
//
// The Python beneath is started by the first engine and lives until the process ends, because
// extension modules (PyQt among them) do not survive being finalised and started again. A
// new engine begins with an empty __main__; modules imported before stay imported.
std::unique_ptr<PythonEngine> createPythonEngine(HostServices &host, mel::Interpreter &mel);

} // namespace standin
