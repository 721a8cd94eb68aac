// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/procedure.h"

namespace mel {

class Runtime;

// Parses and checks a whole text and makes its procedures known. Throws CompileFailure; then
// nothing of the text has had an effect.
// Warnings go to the runtime while compiling. Files named by source statements are compiled on the
// way, and what they define stays even when this text fails later.
std::unique_ptr<Unit> compileSource(Runtime &runtime, SourcePointer source);

} // namespace mel
