// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MSyntax.h>

// The MEL command "corvaneEditor": shows and raises the editor window, or with -writeSettings
// saves its settings and leaves the window alone. Maya makes one for each call and deletes it; it
// holds nothing, all that lives longer is in EditorInstance.
class KestrowlCmd : public MPxCommand
{
public:
    static const char *const commandName;

    // For the registration of the command.
    static void *creator();
    static MSyntax newSyntax();

    // Always succeeds: arguments that cannot be parsed count as none.
    MStatus doIt(const MArgList &arguments) override;

    // Builds the editor when the plug-in is loaded; the window is not shown yet. Does not build a
    // second window or callback when called again. Exceptions come through.
    static void startup();

    // Takes it down again, so that nothing of the plug-in is left in Maya. Copes with an editor
    // that was built by half.
    static void cleanup();
};
