// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/function.h"

namespace mel {

// The built-in functions of one topic.
struct FunctionTable
{
    const Function *rows;
    size_t count;
};

// All rows of one name stand in the same table.
const std::vector<FunctionTable> &functionTables();

FunctionTable arrayFunctions();
FunctionTable fileFunctions();
FunctionTable languageFunctions();
FunctionTable mathFunctions();
FunctionTable randomFunctions();
FunctionTable stringFunctions();
FunctionTable systemFunctions();
FunctionTable vectorFunctions();

} // namespace mel
