// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/command.h"

#include <vector>

namespace mel {

class Runtime;

// Appends an argument to a command's words: an array becomes one word per element.
void spreadWord(Value argument, std::vector<Value> &words);

// Runs a command on words, which are the objects of the call: splits them by the command's flags,
// and echoes the command when that is on. Throws RuntimeError for an unknown flag, a missing
// argument, and whatever the command itself throws.
Value runCommand(Runtime &runtime, const Command &command, Call &call);

// Shows the command as a line of history, 'sphere -r 5 "ball";', when that is on.
void echoCommand(Runtime &runtime, const std::string &name, const std::vector<Value> &words);

} // namespace mel
