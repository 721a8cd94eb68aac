// SPDX-License-Identifier: MIT
#include "standin/host/hostcommands.h"
#include "standin/host/plugincommands.h"
#include "standin/host/pluginloader.h"
#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/sdk/pluginrecord.h"

#include <maya/MTypes.h>

#include <QStringList>

namespace standin {

namespace {

mel::StringArray utf8List(const QStringList &texts)
{
    std::vector<std::string> list;
    for (const QString &text : texts)
        list.push_back(toUtf8(text));
    return list;
}

// Throws the error that scripts know.
const PluginRecord &required(const PluginLoader &plugins, const std::string &name)
{
    const PluginRecord *record = plugins.find(toQt(name));
    if (!record)
        throw mel::RuntimeError("Plug-in, \"" + name + "\", is not loaded.");
    return *record;
}

using Action = void (PluginLoader::*)(const QString &);

// Applies the action to every name; the value is the list of them.
mel::Value forEach(const mel::Call &call, PluginLoader &plugins, Action action)
{
    call.objectText(0); // there has to be one
    for (const std::string &name : call.objectTexts())
        (plugins.*action)(toQt(name));
    return call.objectTexts();
}

// pluginInfo -query -FLAG [name]
mel::Value info(const mel::Call &call, const Session &session, const PluginLoader &plugins)
{
    if (call.isSet("listPlugins"))
        return utf8List(plugins.names());
    // The one question that may be asked about any name.
    if (call.isSet("loaded"))
        return plugins.find(toQt(call.objectText(0))) ? 1 : 0;
    const PluginRecord &record = required(plugins, call.objectText(0));
    if (call.isSet("command"))
        return session.pluginCommands().namesOf(record.path);
    if (call.isSet("apiVersion"))
        return std::to_string(MAYA_API_VERSION);
    // What the plug-in says of itself, kept as text.
    static const struct
    {
        const char *flag;
        std::string PluginRecord::*field;
    } fields[] = {
        {"name", &PluginRecord::name},
        {"path", &PluginRecord::path},
        {"vendor", &PluginRecord::vendor},
        {"version", &PluginRecord::version},
    };
    for (const auto &row : fields) {
        if (call.isSet(row.flag))
            return record.*row.field;
    }
    return {};
}

mel::Command actionCommand(const char *name, Session &session, Action action)
{
    mel::Command command;
    command.name = name;
    command.objectSynopsis = "String...";
    command.run = [&session, action](mel::Call &call) {
        return forEach(call, session.plugins(), action);
    };
    return command;
}

} // namespace

void addPluginManagement(Session &session)
{
    mel::Command load = actionCommand("loadPlugin", session, &PluginLoader::loadOrThrow);
    // Accepted for scripts that give it; what goes wrong is reported all the same.
    load.flags = {{"qt", "quiet"}};
    session.mel().addCommand(load);

    mel::Command unload = actionCommand("unloadPlugin", session, &PluginLoader::unloadOrThrow);
    // The same: a plug-in whose code is running is not unloaded even by force.
    unload.flags = {{"f", "force"}};
    session.mel().addCommand(unload);

    mel::Command command;
    command.name = "pluginInfo";
    command.flags = {
        {"av", "apiVersion"}, {"c", "command"}, {"l", "loaded"},  {"ls", "listPlugins"},
        {"n", "name"},        {"p", "path"},    {"vd", "vendor"}, {"v", "version"},
    };
    command.queryable = true;
    command.objectSynopsis = "[String]";
    command.run = [&session](mel::Call &call) { return info(call, session, session.plugins()); };
    session.mel().addCommand(command);
}

} // namespace standin
