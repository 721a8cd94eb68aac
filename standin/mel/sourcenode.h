// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/expression.h"

#include <string>

namespace mel::nodes {

// The source statement. The file is compiled at once, so that its procedures are known to the text
// around it, unless it is being compiled already. Throws CompileError when there is no such file.
// A second run of the statement reads the file anew.
ExpressionPointer sourceFile(Runtime &runtime, const std::string &name, const Place &from);

} // namespace mel::nodes
