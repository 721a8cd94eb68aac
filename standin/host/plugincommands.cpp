// SPDX-License-Identifier: MIT
#include "standin/host/plugincommands.h"

#include <exception>
#include <memory>

namespace standin {

namespace {

mel::Value run(const PluginCommand &command, const mel::Call &call)
{
    try {
        return command.run(call.objects);
    } catch (const mel::RuntimeError &) {
        throw;
    } catch (const std::exception &failure) {
        // Thrown in another library, where the class of the exception need not be ours.
        throw mel::RuntimeError(failure.what());
    }
}

} // namespace

bool PluginCommands::add(const PluginCommand &command)
{
    // Kept by the function itself, so that a command that unregisters itself runs to its end.
    const auto shared = std::make_shared<const PluginCommand>(command);
    mel::Command entry;
    entry.name = command.name;
    entry.flags = command.flags;
    entry.queryable = command.queryable;
    entry.editable = command.editable;
    entry.objectSynopsis = command.objectSynopsis;
    entry.rawWords = true; // the API's own classes split them
    entry.run = [shared](mel::Call &call) { return run(*shared, call); };
    if (!m_interpreter.addCommand(entry))
        return false;
    m_owners[command.name] = command.plugin;
    return true;
}

bool PluginCommands::remove(const std::string &name)
{
    // In this order: a command of the host's has no owner and is left alone.
    return m_owners.erase(name) > 0 && m_interpreter.removeCommand(name);
}

std::vector<std::string> PluginCommands::namesOf(const std::string &pluginPath) const
{
    std::vector<std::string> names;
    for (const auto &[command, owner] : m_owners) {
        if (owner == pluginPath)
            names.push_back(command);
    }
    return names;
}

} // namespace standin
