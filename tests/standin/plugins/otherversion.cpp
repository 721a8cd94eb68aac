// SPDX-License-Identifier: MIT
#define MNoVersionString

#include "tests/standin/plugins/export.h"

#include <maya/MFnPlugin.h>

extern TEST_EXPORT char MApiVersion[];
char MApiVersion[] = "201200";

TEST_EXPORT MStatus initializePlugin(MObject)
{
    return MS::kSuccess;
}

TEST_EXPORT MStatus uninitializePlugin(MObject)
{
    return MS::kSuccess;
}
