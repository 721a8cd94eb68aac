// SPDX-License-Identifier: MIT
#include "tests/standin/plugins/export.h"
#include "tests/standin/plugins/testcommand.h"

#include <maya/MFnPlugin.h>

TEST_EXPORT MStatus initializePlugin(MObject object)
{
    MFnPlugin plugin(object, "Corvane tests", "1.2");
    return plugin.registerCommand("testCommand", TestCommand::creator, TestCommand::newSyntax);
}

TEST_EXPORT MStatus uninitializePlugin(MObject object)
{
    return MFnPlugin(object).deregisterCommand("testCommand");
}
