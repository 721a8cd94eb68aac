// SPDX-License-Identifier: MIT
#pragma once

#include "standin/python/pyref.h"

namespace standin {

// Adds what maya.OpenMaya.MGlobal consists of: displayInfo, executeCommand and so on. False with an
// exception set when that fails. The module keeps the functions for the life of the process.
bool addGlobalFunctions(PyObject *module);

} // namespace standin
