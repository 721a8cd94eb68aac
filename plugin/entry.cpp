// SPDX-License-Identifier: MIT
// The two functions that Maya looks for in the library.
#include "plugin/exceptionguard.h"
#include "plugin/kestrowlcmd.h"

// Defines MApiVersion, so no other file of the plug-in may include it plainly.
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

#if defined(_WIN32)
#define CORVANE_EXPORT __declspec(dllexport)
#else
#define CORVANE_EXPORT __attribute__((visibility("default")))
#endif

namespace {

// What Maya's Plug-in Manager shows.
const char vendor[] = "Corvane";
const char version[] = "1.0";
const char requiredApiVersion[] = "Any";

// Without an interface there is no window to build; Maya loads plug-ins there all the same. A
// failed question counts as no.
bool isBatchSession()
{
    int batch = 0;
    MGlobal::executeCommand(MString("about -batch"), batch, false, false);
    return batch != 0;
}

// Returns the status, so that the caller can pass it on to Maya.
MStatus failed(const MString &what, const MStatus &status)
{
    MGlobal::displayError(what + status.errorString());
    return status;
}

MString aboutCommand(const char *attempt)
{
    return MString(attempt) + " '" + KestrowlCmd::commandName + "' command: ";
}

MStatus load(MObject object)
{
    MStatus status;
    MFnPlugin plugin(object, vendor, version, requiredApiVersion, &status);
    if (!status)
        return failed("Could not initialize plugin: ", status);
    if (isBatchSession())
        return MStatus::kSuccess;
    status = plugin.registerCommand(KestrowlCmd::commandName, KestrowlCmd::creator,
                                    KestrowlCmd::newSyntax);
    if (!status)
        return failed(aboutCommand("Could not register"), status);
    // Maya unloads the library as soon as this fails, so nothing of it may be left behind.
    const bool started = guarded(false, [] {
        KestrowlCmd::startup();
        return true;
    });
    if (!started) {
        KestrowlCmd::cleanup();
        plugin.deregisterCommand(KestrowlCmd::commandName);
    }
    return started ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus unload(MObject object)
{
    MStatus status;
    MFnPlugin plugin(object, vendor, version, requiredApiVersion, &status);
    if (!status)
        return failed("Failed to uninitialize plugin: ", status);
    if (isBatchSession())
        return MStatus::kSuccess;
    // In the reverse order of loading.
    KestrowlCmd::cleanup();
    status = plugin.deregisterCommand(KestrowlCmd::commandName);
    if (!status)
        return failed(aboutCommand("Failed to deregister"), status);
    return MStatus::kSuccess;
}

} // namespace

CORVANE_EXPORT MStatus initializePlugin(MObject object)
{
    return guarded(MStatus(MStatus::kFailure), [&object] { return load(object); });
}

CORVANE_EXPORT MStatus uninitializePlugin(MObject object)
{
    return guarded(MStatus(MStatus::kFailure), [&object] { return unload(object); });
}
