// SPDX-License-Identifier: MIT
#include "standin/host/hostcommands.h"
#include "standin/host/optionvars.h"
#include "standin/host/session.h"

#include <variant>

namespace standin {

namespace {

using mel::ArgumentKind;

// The flags that take a name and a value.
struct Setter
{
    const char *shortName;
    const char *longName;
    ArgumentKind kind;
    bool appends;
};
const Setter setters[] = {
    {"iv", "intValue", ArgumentKind::Int, false},
    {"fv", "floatValue", ArgumentKind::Float, false},
    {"sv", "stringValue", ArgumentKind::String, false},
    {"iva", "intValueAppend", ArgumentKind::Int, true},
    {"fva", "floatValueAppend", ArgumentKind::Float, true},
    {"sva", "stringValueAppend", ArgumentKind::String, true},
};

// A name may be given as any value: a number becomes its text.
std::string textOf(const mel::Value &value)
{
    const std::string *text = std::get_if<std::string>(&value);
    return text ? *text : mel::printText(value);
}

void apply(const Setter &setter, const mel::Call::FlagUse &use, OptionVars &vars)
{
    const std::string name = textOf(use.arguments.at(0));
    if (setter.appends)
        vars.append(name, use.arguments.at(1));
    else
        vars.set(name, use.arguments.at(1));
}

int sizeOf(const mel::Value &value)
{
    const auto size = [](const auto *items) { return items ? static_cast<int>(items->size()) : 0; };
    return size(std::get_if<mel::IntArray>(&value)) + size(std::get_if<mel::FloatArray>(&value)) +
           size(std::get_if<mel::StringArray>(&value));
}

// Deliberate: a missing variable is 0, not an error; scripts rely on it.
mel::Value queried(const OptionVars &vars, const std::string &name)
{
    return vars.exists(name) ? vars.value(name) : mel::Value(0);
}

mel::Value run(const mel::Call &call, OptionVars &vars)
{
    if (call.query)
        return queried(vars, call.objectText(0));
    // The flags that answer something come first: with one of them, nothing is changed.
    if (call.isSet("exists"))
        return vars.exists(call.text("exists")) ? 1 : 0;
    if (call.isSet("arraySize"))
        return sizeOf(vars.value(call.text("arraySize")));
    if (call.isSet("list"))
        return vars.names();
    // Removing before setting, in whatever order the flags stand.
    for (const mel::Call::FlagUse *use : call.findAll("remove"))
        vars.remove(textOf(use->arguments.at(0)));
    // An empty array cannot be stored, so clearing removes.
    for (const mel::Call::FlagUse *use : call.findAll("clearArray"))
        vars.remove(textOf(use->arguments.at(0)));
    for (const Setter &setter : setters) {
        for (const mel::Call::FlagUse *use : call.findAll(setter.longName))
            apply(setter, *use, vars);
    }
    return {};
}

std::vector<mel::Flag> flags()
{
    std::vector<mel::Flag> all = {
        {"as", "arraySize", {ArgumentKind::String}},
        {"ca", "clearArray", {ArgumentKind::String}, true},
        {"ex", "exists", {ArgumentKind::String}},
        {"l", "list"},
        {"rm", "remove", {ArgumentKind::String}, true},
    };
    for (const Setter &row : setters)
        all.push_back({row.shortName, row.longName, {ArgumentKind::String, row.kind}, true});
    return all;
}

} // namespace

void addOptionVarCommand(Session &session)
{
    mel::Command command;
    command.name = "optionVar";
    command.flags = flags();
    command.queryable = true;
    command.objectSynopsis = "[String]";
    command.run = [&session](mel::Call &call) { return run(call, session.optionVars()); };
    session.mel().addCommand(command);
}

} // namespace standin
