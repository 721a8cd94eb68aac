// SPDX-License-Identifier: MIT
#include "tests/standin/plugins/export.h"
#include "tests/standin/plugins/testcommand.h"

#include <maya/MFnPlugin.h>

// Wants the name of another test plug-in, and a number with it when that is taken. Its commands
// belong to it before and after.
TEST_EXPORT MStatus initializePlugin(MObject object)
{
    MFnPlugin plugin(object);
    MStatus status = plugin.registerCommand("testBefore", TestCommand::creator);
    if (status && plugin.setName("good", false).error())
        status = plugin.setName("good");
    return status ? plugin.registerCommand("testAfter", TestCommand::creator) : status;
}

TEST_EXPORT MStatus uninitializePlugin(MObject object)
{
    MFnPlugin plugin(object);
    plugin.deregisterCommand("testBefore");
    return plugin.deregisterCommand("testAfter");
}
