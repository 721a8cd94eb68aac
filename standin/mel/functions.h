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

const std::vector<FunctionTable> &functionTables();

FunctionTable languageFunctions();

} // namespace mel
