// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MPxCommand.h>

// A command that tells what it was called with: "COUNT:NAME:OBJECTS", or "malformed" when the
// words do not fit its syntax.
//   -c -count int, -n -name string (multi-use), -t -throw, -m -melText string,
//   -w -warn string (with the place of the call); any number of strings
class TestCommand : public MPxCommand
{
public:
    static void *creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList &args) override;
};
