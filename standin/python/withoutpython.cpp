// SPDX-License-Identifier: MIT
#include "standin/python/python.h"

namespace standin {

std::unique_ptr<PythonEngine> createPythonEngine(HostServices &, mel::Interpreter &)
{
    return nullptr;
}

} // namespace standin
