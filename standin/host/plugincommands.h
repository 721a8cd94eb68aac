// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/interpreter.h"
#include "standin/sdk/hostservices.h"

#include <map>
#include <string>
#include <vector>

namespace standin {

// The commands that plug-ins have added to the interpreter. Only these can be removed again: a
// plug-in cannot take away a command of the host's. The interpreter has to outlive it.
class PluginCommands
{
public:
    explicit PluginCommands(mel::Interpreter &interpreter) : m_interpreter(interpreter) {}

    // False when the name is taken.
    // The command's code stays the plug-in's, so it has to be removed before the plug-in is
    // unmapped.
    bool add(const PluginCommand &command);
    // False when no plug-in has added such a command.
    bool remove(const std::string &name);
    // Sorted. By path, since a plug-in may change its name.
    std::vector<std::string> namesOf(const std::string &pluginPath) const;

private:
    mel::Interpreter &m_interpreter;
    std::map<std::string, std::string> m_owners; // command to path of the plug-in
};

} // namespace standin
