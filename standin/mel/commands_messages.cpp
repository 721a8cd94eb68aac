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

// The place in front of a message, as the flags ask for it.
std::string prefix(const Runtime &runtime, const Call &call)
{
    // Python and the interface have no line to name.
    if (call.isSet("noContext") || !runtime.topFrame())
        return {};
    const bool shown = call.boolean("showLineNumber", runtime.settings.lineNumbers);
    return shown ? runtime.place().prefix() : "";
}

// Ends the script up to the nearest catch; the message has its place already.
Value error(Runtime &runtime, Call &call)
{
    runtime.failLocated(prefix(runtime, call) + joinedObjects(call));
}

Value warning(Runtime &runtime, Call &call)
{
    runtime.report(MessageKind::Warning, prefix(runtime, call) + joinedObjects(call));
    return {};
}

// To the standard error stream only, never to the history.
Value trace(Runtime &runtime, Call &call)
{
    const std::string where = call.isSet("where") ? runtime.place().prefix() : "";
    std::cerr << where + joinedObjects(call) + "\n";
    return {};
}

// Leaves the switch as it is when the flag is absent.
void setSwitch(const Call &call, const char *flag, bool &value)
{
    value = call.boolean(flag, value);
}

// The names behind both flags. An array of names is spread into words, of which a flag takes the
// first only; the others arrive as objects.
void addFilters(const Call &call, std::vector<std::string> &filter)
{
    for (const char *flag : {"filter", "addFilter"}) {
        for (const Call::FlagUse *use : call.findAll(flag))
            filter.push_back(std::get<std::string>(use->arguments[0]));
    }
    const bool named = call.isSet("filter") || call.isSet("addFilter");
    const std::vector<std::string> others = named ? call.objectTexts() : std::vector<std::string>();
    filter.insert(filter.end(), others.begin(), others.end());
}

Value commandEcho(Runtime &runtime, Call &call)
{
    Settings &settings = runtime.settings;
    if (call.query) {
        if (call.isSet("filter") || call.isSet("addFilter"))
            return settings.echoFilter;
        return call.isSet("lineNumbers") ? settings.lineNumbers : settings.echoCommands;
    }
    setSwitch(call, "state", settings.echoCommands);
    setSwitch(call, "lineNumbers", settings.lineNumbers);
    if (call.isSet("filter"))
        settings.echoFilter.clear();
    addFilters(call, settings.echoFilter);
    return {};
}

Value stackTrace(Runtime &runtime, Call &call)
{
    if (call.query)
        return runtime.settings.stackTrace ? 1 : 0;
    setSwitch(call, "state", runtime.settings.stackTrace);
    return {};
}

// One switch, so a query needs no flag to say which.
Value melOptions(Runtime &runtime, Call &call)
{
    if (call.query)
        return runtime.settings.duplicateVariableWarnings ? 1 : 0;
    setSwitch(call, "duplicateVariableWarnings", runtime.settings.duplicateVariableWarnings);
    return {};
}

const CommandRow rows[] = {
    {"error", error, contextFlags, "String"},
    {"warning", warning, contextFlags, "String"},
    {"trace", trace, {{"w", "where"}}, "String"},
    {"commandEcho",
     commandEcho,
     {{"st", "state", {ArgumentKind::Boolean}},
      {"ln", "lineNumbers", {ArgumentKind::Boolean}},
      {"f", "filter", {ArgumentKind::String}, true},
      {"af", "addFilter", {ArgumentKind::String}, true}},
     "",
     Modes::Query},
    {"stackTrace", stackTrace, {{"s", "state", {ArgumentKind::Boolean}}}, "", Modes::Query},
    {"melOptions",
     melOptions,
     {{"dup", "duplicateVariableWarnings", {ArgumentKind::Boolean}}},
     "",
     Modes::Query},
};

} // namespace

CommandRows messageCommands()
{
    return {rows, std::size(rows)};
}

} // namespace mel
