// SPDX-License-Identifier: MIT
#include "tests/standin/plugins/export.h"
#include "tests/standin/plugins/testcommand.h"

#include <maya/MFnPlugin.h>

// Fails only after it has registered something.
TEST_EXPORT MStatus initializePlugin(MObject object)
{
    MFnPlugin(object).registerCommand("testLeftBehind", TestCommand::creator);
    return MS::kInvalidParameter;
}

TEST_EXPORT MStatus uninitializePlugin(MObject)
{
    return MS::kSuccess;
}
