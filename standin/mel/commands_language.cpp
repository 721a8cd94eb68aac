// SPDX-License-Identifier: MIT
#include "standin/mel/builtins.h"

#include "standin/mel/function.h"
#include "standin/mel/pattern.h"
#include "standin/mel/runtime.h"

#include <algorithm>
#include <iterator>

namespace mel {

namespace {

// The flags exclude each other; of several, the one asked for first here wins.
IdlePriority deferredPriority(const Call &call)
{
    if (call.isSet("evaluateNext"))
        return IdlePriority::Next;
    if (call.isSet("lowestPriority"))
        return IdlePriority::Lowest;
    return call.isSet("lowPriority") ? IdlePriority::Low : IdlePriority::Normal;
}

// The text is compiled only when it runs, so its errors appear then and catch() cannot see them.
Value evalDeferred(Runtime &runtime, Call &call)
{
    if (call.isSet("list"))
        return runtime.host.deferredMel();
    runtime.host.deferMel(joinedObjects(call), deferredPriority(call));
    return {};
}

// What the name of a call means to the reader of its script.
// Procedures hide commands, as they do in calls.
std::string describeName(Runtime &runtime, const std::string &name)
{
    if (const ProcedureEntry *known = runtime.definedProcedure(name, true)) {
        return known->source->isTyped() ? "Mel procedure entered interactively."
                                        : "Mel procedure found in: " + known->source->path;
    }
    if (const Library::Script *script = runtime.library.find(name))
        return "Mel procedure found in: " + script->origin;
    if (const auto command = runtime.commands.find(name))
        return command->kind == CommandKind::RunTimeCommand ? "Run Time Command" : "Command";
    const std::string script = runtime.findScript(name);
    return script.empty() ? "Unknown" : "Script found in: " + script;
}

// A variable is told by the value it holds, as a dynamic one has no other type.
Value whatIs(Runtime &runtime, Call &call)
{
    // Catalogues of all names ask thousands of times, so a word is not copied.
    const auto *word =
        call.objects.empty() ? nullptr : std::get_if<std::string>(&call.objects.front());
    const std::string text = word ? std::string() : call.objectText(0);
    const std::string &name = word ? *word : text;
    if (name.empty() || name[0] != '$')
        return describeName(runtime, name);
    const GlobalVariable *variable = runtime.variables.find(name);
    return variable ? typeName(variable->value) + std::string(" variable") : std::string("Unknown");
}

// Also true of a script on the path that nobody has sourced yet.
Value exists(Runtime &runtime, Call &call)
{
    return describeName(runtime, call.objectText(0)) != "Unknown" ? 1 : 0;
}

// Commands and global procedures in one list.
const StringArray &allNames(Runtime &runtime)
{
    // One of the library leaves it only to become a global procedure.
    const unsigned generation = runtime.commands.generation() + runtime.procedures.globalCount();
    if (runtime.listedGeneration != generation) {
        std::vector<std::string> others = runtime.commands.names();
        for (std::string &name : runtime.library.names())
            others.push_back(std::move(name));
        std::sort(others.begin(), others.end());
        runtime.nameList.update(runtime.procedures, std::move(others));
        runtime.listedGeneration = generation;
    }
    return runtime.nameList.names();
}

Value melInfo(Runtime &runtime, Call &)
{
    return allNames(runtime);
}

// May load the script that defines the procedure.
Value getProcArguments(Runtime &runtime, Call &call)
{
    const ProcedurePointer procedure = runtime.findProcedure(call.objectText(0), true);
    if (!procedure)
        throw RuntimeError(missingProcedureText(call.objectText(0)));
    std::vector<std::string> types;
    for (const Parameter &parameter : procedure->parameters)
        types.emplace_back(typeName(parameter.type));
    return types;
}

std::string listNames(Runtime &runtime, const std::string &glob)
{
    std::string list;
    for (const std::string &name : allNames(runtime)) {
        if (matchesGlob(name, glob))
            list += name + "\n";
    }
    return list;
}

// Types only: a procedure has no flags, and its parameters' names are its own affair.
std::string procedureHelp(const Procedure &procedure)
{
    std::string text = "Synopsis: " + procedure.name;
    for (const Parameter &parameter : procedure.parameters)
        text += std::string(" ") + typeName(parameter.type);
    return text + "\n";
}

Value help(Runtime &runtime, Call &call)
{
    const std::string name = call.objectText(0);
    if (call.isSet("list"))
        return listNames(runtime, name);
    if (const ProcedureEntry *procedure = runtime.knownProcedure(name, true))
        return procedureHelp(*procedure->current);
    const auto command = runtime.commands.find(name);
    if (!command)
        throw RuntimeError("Cannot find help for \"" + name + "\".");
    return helpText(*command, !call.isSet("syntaxOnly") || runtime.settings.helpNamesCommandType);
}

// Met where the statement is not, such as from Python. The file is compiled when this runs.
Value source(Runtime &runtime, Call &call)
{
    try {
        runtime.runUnit(*runtime.compileFile(call.objectText(0)));
    } catch (const CompileError &error) {
        throw RuntimeError(error.what());
    }
    return {};
}

// catch() is part of the language. What reaches the command of that name has been evaluated before,
// without an error.
Value caught(Runtime &, Call &)
{
    return 0;
}

// ^1s, ^2s, ... stand for the arguments; one that is missing leaves nothing.
Value format(Runtime &runtime, Call &call)
{
    const std::string pattern = call.objectText(0);
    const auto arguments = call.findAll("stringArg");
    std::string text;
    for (size_t at = 0; at < pattern.size();) {
        const size_t digits = pattern.find_first_not_of("0123456789", at + 1);
        // At most six digits, so that the number cannot overflow.
        const bool placeholder = pattern[at] == '^' && digits != std::string::npos &&
                                 digits > at + 1 && digits - at < 8 && pattern[digits] == 's';
        if (!placeholder) {
            text += pattern[at++];
            continue;
        }
        const size_t number = std::stoul(pattern.substr(at + 1, digits - at - 1));
        if (number >= 1 && number <= arguments.size())
            text += std::get<std::string>(arguments[number - 1]->arguments[0]);
        runtime.checkTextLength(text.size());
        at = digits + 1;
    }
    return text;
}

const CommandRow rows[] = {
    {"evalDeferred",
     evalDeferred,
     {{"low", "lowPriority"}, {"lp", "lowestPriority"}, {"ls", "list"}, {"en", "evaluateNext"}},
     "String..."},
    {"whatIs", whatIs, {}, "Name"},
    {"exists", exists, {}, "Name"},
    {"melInfo", melInfo, {}},
    {"getProcArguments", getProcArguments, {}, "Name"},
    {"help",
     help,
     {{"so", "syntaxOnly"},
      {"l", "list"},
      {"doc", "documentation"},
      {"lng", "language", {ArgumentKind::String}}},
     "String"},
    {"source", source, {}, "String"},
    {"catch", caught, {}, "Script"},
    {"catchQuiet", caught, {}, "Script"},
    {"format", format, {{"s", "stringArg", {ArgumentKind::String}, true}}, "String"},
};

} // namespace

CommandRows languageCommands()
{
    return {rows, std::size(rows)};
}

} // namespace mel
