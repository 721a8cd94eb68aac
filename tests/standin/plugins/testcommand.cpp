// SPDX-License-Identifier: MIT
#include "tests/standin/plugins/testcommand.h"

#include <maya/MArgDatabase.h>
#include <maya/MGlobal.h>
#include <maya/MStringArray.h>

#include <stdexcept>

void *TestCommand::creator()
{
    return new TestCommand;
}

MSyntax TestCommand::newSyntax()
{
    MSyntax syntax;
    syntax.addFlag("-c", "-count", MSyntax::kLong);
    syntax.addFlag("-n", "-name", MSyntax::kString);
    syntax.addFlag("-t", "-throw");
    syntax.addFlag("-m", "-melText", MSyntax::kString);
    syntax.addFlag("-w", "-warn", MSyntax::kString);
    syntax.makeFlagMultiUse("-n");
    syntax.enableQuery();
    syntax.enableEdit();
    syntax.setObjectType(MSyntax::kStringObjects);
    return syntax;
}

MStatus TestCommand::doIt(const MArgList &args)
{
    MStatus status;
    const MArgDatabase words(syntax(), args, &status);
    if (status.error()) {
        setResult("malformed");
        return MS::kSuccess;
    }
    if (words.isFlagSet("-throw"))
        throw std::runtime_error("thrown by the test");
    if (words.isFlagSet("-melText"))
        return MGlobal::executeCommand(words.flagArgumentString("-m", 0));
    if (words.isFlagSet("-warn"))
        displayWarning(words.flagArgumentString("-w", 0), true);
    MStringArray objects;
    words.getObjects(objects);
    MString text;
    text.set(words.flagArgumentInt("-c", 0));
    text += ":" + words.flagArgumentString("-name", 0) + ":";
    for (unsigned int i = 0; i < objects.length(); ++i)
        text += objects[i];
    setResult(text);
    return MS::kSuccess;
}
