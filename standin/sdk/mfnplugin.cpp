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

#include <memory>
#include <string>

using namespace standin;

namespace {

// What the handle stands for; null for the null object.
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

mel::ArgumentKind argumentKind(MSyntax::MArgType type)
{
    switch (type) {
    case MSyntax::kBoolean:
        return mel::ArgumentKind::Boolean;
    case MSyntax::kLong:
        return mel::ArgumentKind::Int;
    case MSyntax::kUnsigned:
        return mel::ArgumentKind::UnsignedInt;
    case MSyntax::kDouble:
        return mel::ArgumentKind::Float;
    case MSyntax::kDistance:
        return mel::ArgumentKind::Length;
    case MSyntax::kAngle:
        return mel::ArgumentKind::Angle;
    case MSyntax::kTime:
        return mel::ArgumentKind::Time;
    case MSyntax::kSelectionItem:
        return mel::ArgumentKind::Name;
    default:
        return mel::ArgumentKind::String;
    }
}

// The flags in the form in which the interpreter's help shows them.
std::vector<mel::Flag> flagsOf(const MSyntax &syntax)
{
    std::vector<mel::Flag> flags;
    for (const StandinAccess::SyntaxData::Flag &declared : StandinAccess::data(syntax).flags) {
        mel::Flag flag;
        flag.shortName = declared.shortName;
        flag.longName = declared.longName;
        for (MSyntax::MArgType type : declared.arguments)
            flag.arguments.push_back(argumentKind(type));
        flag.multiUse = declared.multiUse;
        flag.queryArgument = declared.queryArgument;
        flags.push_back(flag);
    }
    return flags;
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

// Plug-ins keep the name of their file: the host finds their commands and callbacks by it.
MStatus MFnPlugin::setName(const MString &name, bool)
{
    return this->name() == name ? MS::kSuccess : MS::kNotImplemented;
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
    command.plugin = record->name;
    command.flags = flagsOf(syntax);
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
