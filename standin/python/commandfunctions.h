// SPDX-License-Identifier: MIT
#pragma once

#include "standin/python/pyref.h"

#include <string>

namespace standin {

// The function of maya.cmds that runs the MEL command of that name; the command itself is looked
// up when the function is called, so the function may be kept longer than the command exists. Made
// anew each time. Null with an exception set when that fails. GIL held.
PyRef commandFunction(const std::string &name);

} // namespace standin
