// SPDX-License-Identifier: MIT
#include "standin/mel/builtins.h"

#include "standin/mel/runtime.h"

namespace mel {

namespace {

// The script of a run-time command in the language its definition names.
Value runScript(Runtime &runtime, const RunTimeCommand &definition)
{
    if (definition.texts.count("commandLanguage") == 0 ||
        definition.texts.at("commandLanguage") != "python")
        return runtime.runText(definition.texts.at("command"));
    // The program around the interpreter may have no Python.
    const auto python = runtime.commands.find("python");
    if (!python)
        throw RuntimeError(missingProcedureText("python"));
    Call call(runtime.interpreter, python->name);
    call.objects.emplace_back(definition.texts.at("command"));
    return python->run(call);
}

// Looked up by name at each run, so that an edit reaches commands that scripts have bound already.
void addCommand(Runtime &runtime, const std::string &name)
{
    Command command;
    command.name = name;
    command.kind = CommandKind::RunTimeCommand;
    command.run = [&runtime, name](Call &call) {
        if (!call.objects.empty())
            throw RuntimeError(argumentCountText(name));
        // A copy, as the script may delete the command.
        const RunTimeCommand definition = runtime.runTimeCommands.at(name);
        return runScript(runtime, definition);
    };
    if (!runtime.commands.add(std::move(command)))
        throw RuntimeError("A command named \"" + name + "\" exists already.");
}

// Long names of the flags kept as plain texts; a query answers the first that is asked for.
const char *const textFlags[] = {"annotation",      "category",       "command",
                                 "commandLanguage", "image",          "keywords",
                                 "label",           "longAnnotation", "tags"};

StringArray names(const Runtime &runtime)
{
    std::vector<std::string> all;
    for (const auto &entry : runtime.runTimeCommands)
        all.push_back(entry.first);
    return all;
}

Value answer(const RunTimeCommand &definition, const Call &call)
{
    for (const char *flag : textFlags) {
        if (!call.isSet(flag))
            continue;
        const auto found = definition.texts.find(flag);
        return found == definition.texts.end() ? std::string() : found->second;
    }
    // Flags that are accepted but not kept answer 0 too.
    return call.isSet("default") ? definition.isDefault : false;
}

void change(RunTimeCommand &definition, const Call &call)
{
    for (const char *flag : textFlags) {
        if (call.isSet(flag))
            definition.texts[flag] = call.text(flag);
    }
    definition.isDefault = call.boolean("default", definition.isDefault);
}

Value define(Runtime &runtime, const Call &call, const std::string &name, bool known)
{
    // Redefining takes -edit, so that two scripts cannot take each other's name unnoticed.
    if (known && !call.edit)
        throw RuntimeError("Run time command \"" + name + "\" exists already.");
    if (!known && call.edit)
        throw RuntimeError("Run time command \"" + name + "\" not found.");
    if (!known)
        addCommand(runtime, name);
    RunTimeCommand &definition = runtime.runTimeCommands[name];
    // runScript() relies on the command being there, be it empty.
    definition.texts.try_emplace("command");
    change(definition, call);
    return name;
}

Value runTimeCommand(Runtime &runtime, Call &call)
{
    if (call.isSet("commandArray") || call.isSet("userCommandArray"))
        return names(runtime);
    if (call.isSet("numberOfCommands"))
        return static_cast<int>(runtime.runTimeCommands.size());
    const std::string name =
        call.isSet("exists") ? call.text("exists", call.objects.empty() ? "" : call.objectText(0))
                             : call.objectText(0);
    const auto found = runtime.runTimeCommands.find(name);
    const bool known = found != runtime.runTimeCommands.end();
    if (call.isSet("exists"))
        return known ? 1 : 0;
    if (!call.query && !call.isSet("delete"))
        return define(runtime, call, name, known);
    if (!known)
        throw RuntimeError("Run time command \"" + name + "\" not found.");
    if (call.query)
        return answer(found->second, call);
    // The command may be running: its caller holds it, and it works on a copy of the definition.
    runtime.runTimeCommands.erase(found);
    runtime.commands.remove(name);
    return {};
}

const CommandRow rows[] = {
    {"runTimeCommand",
     runTimeCommand,
     {{"ann", "annotation", {ArgumentKind::String}},
      {"c", "command", {ArgumentKind::Script}},
      {"ca", "commandArray"},
      {"cat", "category", {ArgumentKind::String}},
      {"cl", "commandLanguage", {ArgumentKind::String}},
      {"d", "default", {ArgumentKind::Boolean}},
      {"del", "delete"},
      {"ex", "exists"},
      {"hc", "hotkeyCtx", {ArgumentKind::String}},
      {"i", "image", {ArgumentKind::String}},
      {"k", "keywords", {ArgumentKind::String}},
      {"l", "label", {ArgumentKind::String}},
      {"la", "longAnnotation", {ArgumentKind::String}},
      {"nc", "numberOfCommands"},
      {"s", "save"},
      {"she", "showInHotkeyEditor", {ArgumentKind::Boolean}},
      {"t", "tags", {ArgumentKind::String}},
      {"uca", "userCommandArray"}},
     "String",
     Modes::QueryAndEdit},
};

} // namespace

CommandRows runTimeCommands()
{
    return {rows, std::size(rows)};
}

} // namespace mel
