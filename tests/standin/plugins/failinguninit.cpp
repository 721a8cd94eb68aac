// SPDX-License-Identifier: MIT
#include "tests/standin/plugins/export.h"
#include "tests/standin/plugins/testcommand.h"

#include <maya/MCommandMessage.h>
#include <maya/MFnPlugin.h>

namespace {

void listen(const MString &, MCommandMessage::MessageType, void *) {}

} // namespace

TEST_EXPORT MStatus initializePlugin(MObject object)
{
    MCommandMessage::addCommandOutputCallback(listen);
    return MFnPlugin(object).registerCommand("testStays", TestCommand::creator);
}

TEST_EXPORT MStatus uninitializePlugin(MObject)
{
    return MS::kFailure;
}
