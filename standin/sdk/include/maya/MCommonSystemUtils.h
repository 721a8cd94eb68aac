// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MString.h>

STANDIN_API_OPEN

// The process and its files.
class STANDIN_API MCommonSystemUtils
{
public:
    // A variable that is not set gives an empty text, and still success.
    static MString getEnv(const MString &variable, MStatus *ReturnStatus = nullptr);
    static MStatus getEnv(const MString &variable, MString &value);
    static MStatus putEnv(const MString &variable, const MString &value);

    // Makes missing parents too; a directory that exists is a success.
    static MStatus makeDirectory(const MString &path);
};

STANDIN_API_CLOSE
