// SPDX-License-Identifier: MIT
#include <maya/MArgDatabase.h>

STANDIN_API_OPEN

MArgDatabase::MArgDatabase(const MSyntax &syntax, const MArgList &argList, MStatus *ReturnStatus)
    : MArgParser(syntax, argList, ReturnStatus)
{
}

MArgDatabase::~MArgDatabase() = default;

STANDIN_API_CLOSE
