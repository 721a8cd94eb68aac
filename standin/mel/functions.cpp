// SPDX-License-Identifier: MIT
#include "standin/mel/functions.h"

namespace mel {

const std::vector<FunctionTable> &functionTables()
{
    static const std::vector<FunctionTable> tables = {
        languageFunctions(),
    };
    return tables;
}

} // namespace mel
