// SPDX-License-Identifier: MIT
#include "editor/openscripts.h"

namespace {

const OpenScripts *knownScripts = nullptr;

} // namespace

void setOpenScripts(const OpenScripts *scripts)
{
    knownScripts = scripts;
}

const OpenScripts *openScripts()
{
    return knownScripts;
}
