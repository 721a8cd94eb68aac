// SPDX-License-Identifier: MIT
#include "standin/mel/builtins.h"

#include "standin/mel/function.h"
#include "standin/mel/runtime.h"

namespace mel {

namespace {

// Unsplit words, as functions take dashes and arrays for what they are. Several rows of one name
// give one command, since adding a second time is refused.
Command functionCommand(Runtime &runtime, const Function &function)
{
    Command command;
    command.name = function.name;
    command.rawWords = true;
    command.run = [&runtime](Call &call) {
        return callFunctionByName(runtime, call.command, call.objects);
    };
    return command;
}

Command rowCommand(Runtime &runtime, const CommandRow &row)
{
    Command command;
    command.name = row.name;
    command.flags = row.flags;
    command.queryable = row.modes != Modes::None;
    command.editable = row.modes == Modes::QueryAndEdit;
    command.objectSynopsis = row.objects;
    command.run = [&runtime, run = row.run](Call &call) { return run(runtime, call); };
    return command;
}

} // namespace

void addBuiltInCommands(Runtime &runtime)
{
    for (const Function *function : allFunctions())
        runtime.commands.add(functionCommand(runtime, *function));
    for (const CommandRows &topic : {messageCommands(), languageCommands(), runTimeCommands(),
                                     fileCommands(), systemCommands()}) {
        for (size_t i = 0; i < topic.count; ++i)
            runtime.commands.add(rowCommand(runtime, topic.rows[i]));
    }
}

std::string joinedObjects(const Call &call)
{
    std::string text = call.objectText(0);
    for (size_t i = 1; i < call.objects.size(); ++i)
        text += " " + call.objectText(i);
    return text;
}

} // namespace mel
