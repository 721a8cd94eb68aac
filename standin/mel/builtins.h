// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/command.h"

#include <string>
#include <vector>

namespace mel {

class Runtime;

// Which of -query and -edit the command accepts.
enum class Modes { None, Query, QueryAndEdit };

// A built-in command with flags.
// Positional functions have a table of their own, see function.h: they take no flags.
struct CommandRow
{
    const char *name;
    Value (*run)(Runtime &, Call &);
    std::vector<Flag> flags;
    const char *objects = ""; // as help shows them
    Modes modes = Modes::None;
};

// The commands of one topic.
struct CommandRows
{
    const CommandRow *rows;
    size_t count;
};

// Adds the commands that are built in, the positional functions among them.
void addBuiltInCommands(Runtime &runtime);

CommandRows fileCommands();
CommandRows languageCommands();
CommandRows messageCommands();
CommandRows runTimeCommands();
CommandRows systemCommands();

// All objects as one text, blanks between them. Throws RuntimeError when there is none.
std::string joinedObjects(const Call &call);

// The answer of help for a command: its synopsis and flags.
std::string helpText(const Command &command, bool namesCommandType);

} // namespace mel
