// SPDX-License-Identifier: MIT
#include "tests/standin/plugins/export.h"

#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>

TEST_EXPORT MStatus initializePlugin(MObject)
{
    MGlobal::displayInfo("this must not run");
    return MS::kSuccess;
}
