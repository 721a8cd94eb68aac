// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/function.h"
#include "standin/mel/procedure.h"

#include <string>

namespace mel::nodes {

// A procedure known while compiling; `signature` is what the arguments were checked against.
// The entry must outlive the node, which entries of Procedures do.
ExpressionPointer procedureCall(const ProcedureEntry &entry, const ProcedurePointer &signature,
                                ExpressionList arguments, int line);

// A built-in function; the arguments are converted already.
ExpressionPointer functionCall(const Function &function, ExpressionList arguments, Type type,
                               int line);

// Whatever has that name when the call is reached: procedure, command, or script on the path.
ExpressionPointer lateCall(std::string name, ExpressionList arguments, int line);

} // namespace mel::nodes
