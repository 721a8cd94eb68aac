// SPDX-License-Identifier: MIT
#include "standin/mel/builtins.h"

#include "standin/mel/runtime.h"

#include <iostream>

namespace mel {

namespace {

const std::vector<Flag> contextFlags = {
    {"n", "noContext"},
    {"sl", "showLineNumber", {ArgumentKind::Boolean}},
};

std::string messageText(const Call &call)
{
    call.objectText(0);
    std::string text;
    for (const std::string &object : call.objectTexts())
        text += (text.empty() ? "" : " ") + object;
    return text;
}

// The place in front of a message, as the flags ask for it.
std::string prefix(const Runtime &runtime, const Call &call)
{
    if (call.isSet("noContext"))
        return {};
    const bool shown = call.boolean("showLineNumber", runtime.settings.lineNumbers);
    return shown ? runtime.place().prefix() : "";
}

Value error(Runtime &runtime, const Call &call)
{
    runtime.failLocated(prefix(runtime, call) + messageText(call));
}

Value warning(Runtime &runtime, const Call &call)
{
    runtime.report(MessageKind::Warning, prefix(runtime, call) + messageText(call));
    return {};
}

Value trace(Runtime &runtime, const Call &call)
{
    const std::string where = call.isSet("where") ? runtime.place().prefix() : "";
    std::cerr << where + messageText(call) + "\n";
    return {};
}

} // namespace

std::vector<Command> messageCommands(Runtime &runtime)
{
    const auto bound = [&runtime](auto *run) {
        return [&runtime, run](Call &call) { return run(runtime, call); };
    };
    std::vector<Command> commands(3);
    commands[0] = {"error", bound(error), contextFlags};
    commands[1] = {"warning", bound(warning), contextFlags};
    commands[2] = {"trace", bound(trace), {{"w", "where"}}};
    return commands;
}

} // namespace mel
