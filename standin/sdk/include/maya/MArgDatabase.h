// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MArgParser.h>

STANDIN_API_OPEN

// An argument parser that can also hand out scene objects as a selection. There are none here, so
// it adds nothing; plug-ins use it for its name. A failed status means what it means for the
// parser.
class STANDIN_API MArgDatabase : public MArgParser
{
public:
    MArgDatabase(const MSyntax &syntax, const MArgList &argList, MStatus *ReturnStatus = nullptr);
    ~MArgDatabase() override;
};

STANDIN_API_CLOSE
