// SPDX-License-Identifier: MIT
#include "tests/standin/plugins/export.h"

#include <maya/MCommandMessage.h>
#include <maya/MFnPlugin.h>

#include <cstdlib>

namespace {

// Set at unloading; a call after that would run code that is gone.
bool unloaded = false;

void listen(const MString &, MCommandMessage::MessageType, void *)
{
    if (unloaded)
        std::abort();
}

} // namespace

TEST_EXPORT MStatus initializePlugin(MObject)
{
    MCommandMessage::addCommandOutputCallback(listen);
    return MS::kSuccess;
}

TEST_EXPORT MStatus uninitializePlugin(MObject)
{
    unloaded = true;
    return MS::kSuccess;
}
