// SPDX-License-Identifier: MIT
// The header would declare the entry points with C++ linkage.
#define MNoPluginEntry

#include "tests/standin/plugins/export.h"
#include "tests/standin/plugins/testcommand.h"

#include <maya/MFnPlugin.h>

extern "C" TEST_EXPORT MStatus initializePlugin(MObject object)
{
    MFnPlugin plugin(object, "Corvane tests", "1.2");
    return plugin.registerCommand("testCommandOfC", TestCommand::creator, TestCommand::newSyntax);
}

extern "C" TEST_EXPORT MStatus uninitializePlugin(MObject object)
{
    return MFnPlugin(object).deregisterCommand("testCommandOfC");
}
