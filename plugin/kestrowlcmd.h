// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MSyntax.h>

// The MEL command "corvaneEditor": shows and raises the editor window, or with -writeSettings
// saves its settings and leaves the window alone.
class KestrowlCmd : public MPxCommand
{
public:
    static const char *const commandName;

    static void *creator();
    static MSyntax newSyntax();

    // Always succeeds: arguments that cannot be parsed count as none.
    MStatus doIt(const MArgList &arguments) override;

    // Builds the editor when the plug-in is loaded.
    static void startup();

    // Takes it down again, so that nothing of the plug-in is left in Maya.
    static void cleanup();
};
