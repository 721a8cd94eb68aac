// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MString.h>

STANDIN_API_OPEN

// The environment of the process and its folders. All texts are UTF-8. The environment belongs to
// the process, so changes are seen by everything in it, and nothing guards it between threads.
class STANDIN_API MCommonSystemUtils
{
public:
    // A variable that is not set gives an empty text, and still success.
    static MString getEnv(const MString &variable, MStatus *ReturnStatus = nullptr);
    static MStatus getEnv(const MString &variable, MString &value);
    // Replaces a value that is there. kFailure for a name that the system refuses.
    static MStatus putEnv(const MString &variable, const MString &value);

    // Makes missing parents too; a directory that exists is a success, and anything else that does
    // not end in one is kFailure.
    static MStatus makeDirectory(const MString &path);
};

STANDIN_API_CLOSE
