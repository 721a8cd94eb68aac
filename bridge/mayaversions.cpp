// SPDX-License-Identifier: MIT
#include "bridge/mayaversions.h"

#include "bridge/outputsuppression.h"

#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>
#include <maya/MString.h>

HostVersions mayaVersions()
{
    const OutputSuppression silence;
    HostVersions versions;
    versions.maya = MQtUtil::toQString(MGlobal::mayaVersion());
    MString python; // stays empty when the call fails
    MGlobal::executePythonCommand("__import__('sys').version.split()[0]", python, false, false);
    versions.python = MQtUtil::toQString(python);
    return versions;
}
