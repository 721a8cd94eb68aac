// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/command.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace mel {

// The commands by name. A running command is held by its caller, so removing it is safe.
class CommandTable
{
public:
    using Pointer = std::shared_ptr<const Command>;

    // False when the name is taken; the older command stays.
    bool add(Command command);
    bool remove(const std::string &name);
    Pointer find(const std::string &name) const; // null when there is none
    std::vector<std::string> names() const;      // in no order
    // Grows with every addition and removal, so that callers can keep what they found until then.
    unsigned generation() const { return m_generation; }

private:
    std::unordered_map<std::string, Pointer> m_commands;
    unsigned m_generation = 0;
};

} // namespace mel
