// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MObject.h>
#include <maya/MStandinSupport.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

// Exactly one source file of a plug-in includes this header plainly; the others define
// MNoVersionString and MNoPluginEntry first.
#ifndef MNoVersionString
#include <maya/MApiVersion.h>
#endif

STANDIN_API_OPEN

// Makes a new MPxCommand for one run of the command; the host deletes it. The pointer travels as
// void*, so a class with several bases has MPxCommand as its first.
typedef void *(*MCreatorFunction)();
// Called once, when the command is registered.
typedef MSyntax (*MCreateSyntaxFunction)();

// Registers what a plug-in brings and tells about the plug-in. A short-lived object: everything it
// sets lives in the host, under the object that the entry points get, until the plug-in is
// unloaded. Only commands can be registered; nodes, translators, tools and the other kinds are
// left out. Without a plug-in's object every call but deregisterCommand() is kFailure.
class STANDIN_API MFnPlugin
{
public:
    // About no plug-in.
    MFnPlugin();
    // The required version is not looked at, as in the application: the host compares MApiVersion.
    // A null object is kInvalidParameter. "Unknown" leaves what the host knows already.
    MFnPlugin(MObject &object, const char *vendor = "Unknown", const char *version = "Unknown",
              const char *requiredApiVersion = "Any", MStatus *ReturnStatus = nullptr);
    ~MFnPlugin();

    // What was set last, or "Unknown".
    MString vendor(MStatus *ReturnStatus = nullptr) const;
    MString version(MStatus *ReturnStatus = nullptr) const;
    // The release of these libraries, as digits.
    MString apiVersion(MStatus *ReturnStatus = nullptr) const;
    // The file's name without its suffix, unless setName() has chosen another.
    MString name(MStatus *ReturnStatus = nullptr) const;
    // The plug-in's file with its full path.
    MString loadPath(MStatus *ReturnStatus = nullptr) const;
    // Scripts know the plug-in by this name instead of its file's. One that is taken gets a number
    // at its end, or is kFailure without `allowRename`. An empty one is kInvalidParameter.
    MStatus setName(const MString &name, bool allowRename = true);
    MStatus setVersion(const MString &version);

    // kFailure for a name that is taken, and for a null creator; deregistering fails for a name
    // that no plug-in has registered. A command left registered at unloading is removed and
    // reported as an error.
    MStatus registerCommand(const MString &commandName, MCreatorFunction creator,
                            MCreateSyntaxFunction createSyntax = nullptr);
    MStatus deregisterCommand(const MString &commandName);

private:
    // A handle only; the host owns what it stands for.
    MObject m_object;
};

STANDIN_API_CLOSE

// From 2018 on the header exports the entry points, outside the versioned namespace. Plug-ins for
// earlier releases export them themselves.
#if MAYA_API_VERSION >= 20180000 && !defined(MNoPluginEntry)
STANDIN_API MStatus initializePlugin(MObject object);
STANDIN_API MStatus uninitializePlugin(MObject object);
#endif
