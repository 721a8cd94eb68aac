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

typedef void *(*MCreatorFunction)();
typedef MSyntax (*MCreateSyntaxFunction)();

// Registers what a plug-in brings.
class STANDIN_API MFnPlugin
{
public:
    MFnPlugin();
    // The required version is not looked at. A null object is kInvalidParameter.
    MFnPlugin(MObject &object, const char *vendor = "Unknown", const char *version = "Unknown",
              const char *requiredApiVersion = "Any", MStatus *ReturnStatus = nullptr);
    ~MFnPlugin();

    MString vendor(MStatus *ReturnStatus = nullptr) const;
    MString version(MStatus *ReturnStatus = nullptr) const;
    MString apiVersion(MStatus *ReturnStatus = nullptr) const;
    MString name(MStatus *ReturnStatus = nullptr) const;
    MString loadPath(MStatus *ReturnStatus = nullptr) const;
    // Scripts know the plug-in by this name instead of its file's. One that is taken gets a number
    // at its end, or is kFailure without `allowRename`.
    MStatus setName(const MString &name, bool allowRename = true);
    MStatus setVersion(const MString &version);

    // Fails for a name that is taken, or not known.
    MStatus registerCommand(const MString &commandName, MCreatorFunction creator,
                            MCreateSyntaxFunction createSyntax = nullptr);
    MStatus deregisterCommand(const MString &commandName);

private:
    MObject m_object;
};

STANDIN_API_CLOSE

#if MAYA_API_VERSION >= 20180000 && !defined(MNoPluginEntry)
STANDIN_API MStatus initializePlugin(MObject object);
STANDIN_API MStatus uninitializePlugin(MObject object);
#endif
