// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/command.h"

#include <vector>

namespace mel {

class Runtime;

// The built-in commands with flags, by topic.
std::vector<Command> messageCommands(Runtime &runtime);

} // namespace mel
