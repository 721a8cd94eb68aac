// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MSyntax.h>

namespace standin {

struct PluginCommand;

// Gives the command the flags, modes and objects of the syntax in the form in which the
// interpreter's help shows them.
void describe(const MSyntax &syntax, PluginCommand &command);

} // namespace standin
