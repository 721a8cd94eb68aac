// SPDX-License-Identifier: MIT
#include "standin/mel/builtins.h"

#include "standin/mel/function.h"
#include "standin/mel/runtime.h"

namespace mel {

void addBuiltInCommands(Runtime &runtime)
{
    for (const Function *function : allFunctions()) {
        Command command;
        command.name = function->name;
        command.rawWords = true;
        command.run = [&runtime](Call &call) {
            return callFunctionByName(runtime, call.command, call.objects);
        };
        runtime.commands.add(std::move(command));
    }
    for (auto *topic : {messageCommands}) {
        for (Command &command : topic(runtime))
            runtime.commands.add(std::move(command));
    }
}

} // namespace mel
