// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MArgParser.h>

STANDIN_API_OPEN

// An argument parser that can also hand out scene objects; there are none here.
class STANDIN_API MArgDatabase : public MArgParser
{
public:
    MArgDatabase(const MSyntax &syntax, const MArgList &argList, MStatus *ReturnStatus = nullptr);
    ~MArgDatabase() override;
};

STANDIN_API_CLOSE
