// SPDX-License-Identifier: MIT
// The library itself is no plug-in: no version object, no entry points.
#define MNoVersionString
#define MNoPluginEntry
#include <maya/MFnPlugin.h>

#include "standin/sdk/commandrun.h"
#include "standin/sdk/convert.h"
#include "standin/sdk/hostaccess.h"
#include "standin/sdk/hostservices.h"
#include "standin/sdk/pluginrecord.h"
#include "standin/sdk/standinaccess.h"
#include "standin/sdk/syntaxhelp.h"

#include <memory>
#include <string>

using namespace standin;

namespace {

// What the handle stands for; null for the null object.
// The only type that a handle ever has, so the cast needs no check.
PluginRecord *recordOf(const MObject &object)
{
    return static_cast<PluginRecord *>(StandinAccess::target(object));
}

// One field of the record; empty, with kFailure, for the null object.
MString fieldOf(const MObject &object, std::string PluginRecord::*field, MStatus *status)
{
    const PluginRecord *record = recordOf(object);
    setStatus(status, record ? MS::kSuccess : MS::kFailure);
    return record ? apiString(record->*field) : MString();
}

// The name itself, or with the first number that makes it unlike those of the loaded plug-ins.
std::string unusedName(const std::string &name)
{
    // "tools" becomes "tools1", then "tools2".
    std::string unused = name;
    for (int number = 1; hostServices()->hasPlugin(unused); ++number)
        unused = name + std::to_string(number);
    return unused;
}

} // namespace

namespace standin {

MObject pluginObject(PluginRecord &record)
{
    return StandinAccess::object(&record);
}

} // namespace standin

STANDIN_API_OPEN

MFnPlugin::MFnPlugin() = default;
MFnPlugin::~MFnPlugin() = default;

MFnPlugin::MFnPlugin(MObject &object, const char *vendor, const char *version, const char *,
                     MStatus *ReturnStatus)
    : m_object(object)
{
    PluginRecord *record = recordOf(m_object);
    setStatus(ReturnStatus, record ? MS::kSuccess : MS::kInvalidParameter);
    // The defaults leave what an earlier function set gave.
    if (record && MString(vendor) != "Unknown")
        record->vendor = vendor ? vendor : "";
    if (record && MString(version) != "Unknown")
        record->version = version ? version : "";
}

MString MFnPlugin::vendor(MStatus *ReturnStatus) const
{
    return fieldOf(m_object, &PluginRecord::vendor, ReturnStatus);
}

MString MFnPlugin::version(MStatus *ReturnStatus) const
{
    return fieldOf(m_object, &PluginRecord::version, ReturnStatus);
}

MString MFnPlugin::apiVersion(MStatus *ReturnStatus) const
{
    setStatus(ReturnStatus, m_object.isNull() ? MS::kFailure : MS::kSuccess);
    return m_object.isNull() ? MString() : MString(std::to_string(MAYA_API_VERSION).c_str());
}

MString MFnPlugin::name(MStatus *ReturnStatus) const
{
    return fieldOf(m_object, &PluginRecord::name, ReturnStatus);
}

MString MFnPlugin::loadPath(MStatus *ReturnStatus) const
{
    return fieldOf(m_object, &PluginRecord::path, ReturnStatus);
}

MStatus MFnPlugin::setName(const MString &name, bool allowRename)
{
    PluginRecord *record = recordOf(m_object);
    if (!record || !hostServices())
        return MS::kFailure;
    const std::string wanted = utf8(name);
    if (wanted.empty())
        return MS::kInvalidParameter;
    // It would count as taken, by the plug-in itself.
    if (wanted == record->name)
        return MS::kSuccess;
    const std::string unused = unusedName(wanted);
    if (unused != wanted && !allowRename)
        return MS::kFailure;
    record->name = unused;
    return MS::kSuccess;
}

MStatus MFnPlugin::setVersion(const MString &version)
{
    PluginRecord *record = recordOf(m_object);
    if (!record)
        return MS::kFailure;
    record->version = utf8(version);
    return MS::kSuccess;
}

MStatus MFnPlugin::registerCommand(const MString &commandName, MCreatorFunction creator,
                                   MCreateSyntaxFunction createSyntax)
{
    const PluginRecord *record = recordOf(m_object);
    if (!record || !creator || !hostServices() || commandName.length() == 0)
        return MS::kFailure;
    // Asked for once: a syntax does not change while its command is registered.
    const MSyntax syntax = createSyntax ? createSyntax() : MSyntax();
    PluginCommand command;
    command.name = utf8(commandName);
    // By path and not by name, which the plug-in may change later.
    command.plugin = record->path;
    describe(syntax, command);
    // The creator is code of the plug-in: the host removes the command before it unmaps that.
    command.run = [creator, syntax](const std::vector<mel::Value> &words) {
        return runCommand(creator, syntax, words);
    };
    return hostServices()->registerCommand(command) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnPlugin::deregisterCommand(const MString &commandName)
{
    const bool known = hostServices() && hostServices()->deregisterCommand(utf8(commandName));
    return known ? MS::kSuccess : MS::kFailure;
}

STANDIN_API_CLOSE
