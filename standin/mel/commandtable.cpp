// SPDX-License-Identifier: MIT
#include "standin/mel/commandtable.h"

namespace mel {

bool CommandTable::add(Command command)
{
    const std::string name = command.name;
    const bool added =
        // Never replaced in place: whoever wants another command removes the old one first.
        m_commands.emplace(name, std::make_shared<Command>(std::move(command))).second;
    m_generation += added ? 1 : 0;
    return added;
}

bool CommandTable::remove(const std::string &name)
{
    const bool removed = m_commands.erase(name) > 0;
    m_generation += removed ? 1 : 0;
    return removed;
}

CommandTable::Pointer CommandTable::find(const std::string &name) const
{
    const auto found = m_commands.find(name);
    return found == m_commands.end() ? nullptr : found->second;
}

std::vector<std::string> CommandTable::names() const
{
    std::vector<std::string> all;
    for (const auto &entry : m_commands)
        all.push_back(entry.first);
    return all;
}

} // namespace mel
