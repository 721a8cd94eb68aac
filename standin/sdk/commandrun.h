// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/value.h"

#include <maya/MSyntax.h>

#include <vector>

namespace standin {

// Runs a plug-in's command once: makes its object, calls doIt() and deletes the object. Throws
// mel::RuntimeError when there is no object, doIt() fails, or an exception leaves it; a creator's
// own exception goes through. The syntax is what MPxCommand::syntax() gives meanwhile.
mel::Value runCommand(void *(*creator)(), const MSyntax &syntax,
                      const std::vector<mel::Value> &words);

} // namespace standin
