// SPDX-License-Identifier: MIT
#include "standin/mel/variables.h"

namespace mel {

GlobalVariable *Variables::find(const std::string &name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : found->second;
}

// Each variable has an address of its own that never changes, which compiled code relies on.
GlobalVariable &Variables::declare(const std::string &name, Type type, Value value)
{
    m_all.push_back(std::make_unique<GlobalVariable>(GlobalVariable{type, std::move(value)}));
    m_byName[name] = m_all.back().get();
    return *m_all.back();
}

// Only a text that failed to compile asks for it.
void Variables::forget(const std::string &name)
{
    m_byName.erase(name);
}

std::vector<std::string> Variables::names() const
{
    std::vector<std::string> all;
    for (const auto &entry : m_byName)
        all.push_back(entry.first);
    return all;
}

} // namespace mel
