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
    GlobalVariable *find(const std::string &name) const;
    GlobalVariable &declare(const std::string &name, Type type, Value value);
    // Takes a name back. The variable stays alive, as compiled code may refer to it.
    void forget(const std::string &name);
    std::vector<std::string> names() const; // sorted

private:
    std::map<std::string, GlobalVariable *> m_byName;
    std::vector<std::unique_ptr<GlobalVariable>> m_all;
};

} // namespace mel
