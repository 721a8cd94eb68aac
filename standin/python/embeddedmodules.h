// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace standin {

// A Python module whose source text is part of the program.
struct EmbeddedModule
{
    const char *name; // dotted
    bool isPackage;
    const char *source;
};

// Texts in UTF-8 that live as long as the program; the start-up module is among them.
extern const EmbeddedModule embeddedModules[];
extern const std::size_t embeddedModuleCount;

} // namespace standin
