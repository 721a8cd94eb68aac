// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/command.h"

#include <maya/MCommandResult.h>
#include <maya/MObject.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include <memory>
#include <string>
#include <vector>

STANDIN_API_OPEN

// The insides of the classes that hide them: plug-ins see no type of the interpreter's.
struct MSyntax::Data
{
    struct Flag
    {
        std::string shortName; // names without their dash
        std::string longName;
        std::vector<MArgType> arguments;
        bool multiUse = false;
        mel::QueryArgument queryArgument = mel::QueryArgument::None;
    };

    std::vector<Flag> flags;
    std::vector<MArgType> arguments;
    bool query = false;
    bool edit = false;
    MObjectFormat objectFormat = kInvalidFormat;
    // Objects are the words behind the arguments; a format of kNone or less takes none at all.
    unsigned int minimumObjects = 0;
    unsigned int maximumObjects = 0;

    // By either name, with or without the dash; null when there is none.
    Flag *find(const std::string &name);
};

struct MCommandResult::Data
{
    mel::Value value;
};

STANDIN_API_CLOSE

// A friend of these classes; the only code outside of them that touches their members.
struct StandinAccess
{
    using SyntaxData = MSyntax::Data;

    static const SyntaxData &data(const MSyntax &syntax) { return *syntax.m_data; }
    static SyntaxData &data(MSyntax &syntax) { return *syntax.m_data; }
    static std::string &text(MString &string) { return string.m_text; }
    static mel::Value &value(MCommandResult &result) { return result.m_data->value; }
    // What a handle stands for, which is always a PluginRecord.
    static void *target(const MObject &object) { return object.m_target; }
    static MObject object(void *target)
    {
        MObject object;
        object.m_target = target;
        return object;
    }
};

namespace standin {

// The text without one leading dash.
inline std::string withoutDash(const std::string &name)
{
    return !name.empty() && name[0] == '-' ? name.substr(1) : name;
}

// Stores a status where the caller wants one.
inline void setStatus(MStatus *status, MStatus::MStatusCode code)
{
    if (status)
        *status = code;
}

} // namespace standin
