// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/type.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace mel {

// A variable of the top level, alive as long as the interpreter.
struct GlobalVariable
{
    Type type = Type::Int;
    Value value;
};

// The global variables by their names, "$" included.
class Variables
{
public:
    // Null when there is none of that name.
    GlobalVariable *find(const std::string &name) const;
    // Replaces the name's variable if there is one; callers look before they declare.
    GlobalVariable &declare(const std::string &name, Type type, Value value);
    // Takes a name back. The variable stays alive, as compiled code may refer to it.
    void forget(const std::string &name);
    std::vector<std::string> names() const; // sorted

private:
    std::map<std::string, GlobalVariable *> m_byName;
    // Forgotten ones included, until the interpreter goes.
    std::vector<std::unique_ptr<GlobalVariable>> m_all;
};

} // namespace mel
