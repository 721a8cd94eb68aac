// SPDX-License-Identifier: MIT
#include "tests/standin/plugins/export.h"

#include <maya/MFnPlugin.h>

#include <stdexcept>

TEST_EXPORT MStatus initializePlugin(MObject)
{
    throw std::runtime_error("no room");
}

TEST_EXPORT MStatus uninitializePlugin(MObject)
{
    return MS::kSuccess;
}
