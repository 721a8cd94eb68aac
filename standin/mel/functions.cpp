// SPDX-License-Identifier: MIT
#include "standin/mel/functions.h"

namespace mel {

const std::vector<FunctionTable> &functionTables()
{
    static const std::vector<FunctionTable> tables = {
        languageFunctions(), stringFunctions(), arrayFunctions(),  mathFunctions(),
        vectorFunctions(),   randomFunctions(), systemFunctions(), fileFunctions(),
    };
    return tables;
}

} // namespace mel
