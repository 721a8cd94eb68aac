// SPDX-License-Identifier: MIT
#include "standin/host/hostcommands.h"
#include "standin/host/session.h"

#include <cstdio>
#include <memory>

namespace standin {

namespace {

using mel::ArgumentKind;

// The switches of the history.
struct Switch
{
    const char *shortName;
    const char *longName;
    bool OutputHistory::Suppressed::*state;
};
// The stack trace is left out: only reporters have a flag for it.
const Switch switches[] = {
    {"se", "suppressErrors", &OutputHistory::Suppressed::errors},
    {"si", "suppressInfo", &OutputHistory::Suppressed::info},
    {"sr", "suppressResults", &OutputHistory::Suppressed::results},
    {"ssw", "suppressStackWindow", &OutputHistory::Suppressed::stackWindow},
    {"sw", "suppressWarnings", &OutputHistory::Suppressed::warnings},
};

// One flag is asked for at a time; of several the first in this order answers.
mel::Value query(const mel::Call &call, OutputHistory &history, const std::string &input)
{
    for (const Switch &row : switches) {
        if (call.isSet(row.longName))
            return history.suppressed().*row.state ? 1 : 0;
    }
    if (call.isSet("historyFilename"))
        return history.fileName();
    if (call.isSet("writeHistory"))
        return history.writesFile() ? 1 : 0;
    if (call.isSet("input"))
        return input;
    return {};
}

// Deliberate: the same with and without -edit, since scripts leave the word out.
void edit(const mel::Call &call, OutputHistory &history, std::string &input)
{
    for (const Switch &row : switches) {
        if (call.isSet(row.longName))
            history.suppressed().*row.state = call.boolean(row.longName);
    }
    if (call.isSet("historyFilename"))
        history.setFileName(call.text("historyFilename"));
    // After a new name, so that the flag is about that file. It may not exist, which is no error.
    if (call.isSet("clearHistoryFile"))
        std::remove(history.fileName().c_str());
    if (call.isSet("writeHistory"))
        history.setWritesFile(call.boolean("writeHistory"));
    if (call.isSet("clearHistory"))
        history.clear();
    input = call.text("input", input);
}

std::vector<mel::Flag> flags()
{
    std::vector<mel::Flag> all = {
        {"ch", "clearHistory"},
        {"chf", "clearHistoryFile"},
        {"hfn", "historyFilename", {ArgumentKind::String}},
        {"i", "input", {ArgumentKind::String}},
        {"wh", "writeHistory", {ArgumentKind::Boolean}},
    };
    for (const Switch &row : switches)
        all.push_back({row.shortName, row.longName, {ArgumentKind::Boolean}});
    return all;
}

} // namespace

void addScriptEditorCommand(Session &session)
{
    mel::Command command;
    command.name = "scriptEditorInfo";
    command.flags = flags();
    command.queryable = true;
    command.editable = true;
    // The text of the host's own editor, which is not there: only remembered for who asks.
    const auto input = std::make_shared<std::string>();
    command.run = [&session, input](mel::Call &call) -> mel::Value {
        if (call.query)
            return query(call, session.history(), *input);
        edit(call, session.history(), *input);
        return {};
    };
    session.mel().addCommand(command);
}

} // namespace standin
