// SPDX-License-Identifier: MIT
#include "standin/host/hostcommands.h"
#include "standin/host/session.h"
#include "standin/host/utf8.h"

#include <maya/MGlobal.h>

#include <QDateTime>
#include <QDir>
#include <QString>

namespace standin {

namespace {

using mel::ArgumentKind;

#if defined(_WIN32)
const char operatingSystem[] = "win64";
#elif defined(__APPLE__)
const char operatingSystem[] = "mac";
#else
const char operatingSystem[] = "linux64";
#endif

// The language has no truth values, so the answers are 1 and 0.
mel::Value isSystem(const char *name)
{
    return std::string(operatingSystem) == name ? 1 : 0;
}

mel::Value release()
{
    return std::string(MGlobal::mayaVersion().asUTF8());
}

// The questions that a flag without arguments asks.
struct Question
{
    const char *shortName;
    const char *longName;
    mel::Value (*answer)(const Session &session);
};

// A folder of the user, in UTF-8.
std::string folder(const Session &session, const char *name)
{
    return toUtf8(session.userFolder(name));
}

std::string currentTime(const char *format)
{
    return toUtf8(QDateTime::currentDateTime().toString(QLatin1String(format)));
}

const Question aboutTable[] = {
    {"64", "is64", [](const Session &) -> mel::Value { return sizeof(void *) == 8 ? 1 : 0; }},
    {"a", "application", [](const Session &) -> mel::Value { return "maya"; }},
    {"api", "apiVersion", [](const Session &) -> mel::Value { return MGlobal::apiVersion(); }},
    {"b", "batch", [](const Session &session) -> mel::Value { return session.isBatch() ? 1 : 0; }},
    {"cd", "currentDate", [](const Session &) -> mel::Value { return currentTime("yyyy/MM/dd"); }},
    {"ct", "currentTime", [](const Session &) -> mel::Value { return currentTime("hh:mm:ss"); }},
    {"li", "linux", [](const Session &) { return isSystem("linux64"); }},
    {"mac", "macOS", [](const Session &) { return isSystem("mac"); }},
    {"nt", "ntOS", [](const Session &) { return isSystem("win64"); }},
    {"os", "operatingSystem", [](const Session &) -> mel::Value { return operatingSystem; }},
    // Deliberate: not the application's name, so that a script can tell the two apart.
    {"p", "product", [](const Session &) -> mel::Value { return "Maya stand-in"; }},
    {"qt", "qtVersion", [](const Session &) -> mel::Value { return qVersion(); }},
    {"uil", "uiLanguage", [](const Session &) -> mel::Value { return "en_US"; }},
    {"v", "version", [](const Session &) { return release(); }},
    {"win", "windows", [](const Session &) { return isSystem("win64"); }},
};

// Folders are made when they are asked for, and their names end in a slash.
const Question folderTable[] = {
    {"uad", "userAppDir", [](const Session &s) -> mel::Value { return folder(s, "."); }},
    {"ubd", "userBitmapsDir",
     [](const Session &s) -> mel::Value { return folder(s, "prefs/icons"); }},
    {"uhk", "userHotkeyDir",
     [](const Session &s) -> mel::Value { return folder(s, "prefs/hotkeys"); }},
    {"umm", "userMarkingMenuDir",
     [](const Session &s) -> mel::Value { return folder(s, "prefs/markingMenus"); }},
    {"upd", "userPrefDir", [](const Session &s) -> mel::Value { return folder(s, "prefs"); }},
    {"ups", "userPresetsDir", [](const Session &s) -> mel::Value { return folder(s, "presets"); }},
    {"usd", "userScriptDir", [](const Session &s) -> mel::Value { return folder(s, "scripts"); }},
    {"ush", "userShelfDir",
     [](const Session &s) -> mel::Value { return folder(s, "prefs/shelves"); }},
    {"utd", "userTmpDir",
     [](const Session &) -> mel::Value { return toUtf8(QDir::tempPath() + "/"); }},
    {"uwd", "userWorkspaceDir",
     [](const Session &s) -> mel::Value { return folder(s, "projects"); }},
};

// A command that answers the first question asked.
template <size_t count>
void addQuestions(Session &session, const char *name, const Question (&table)[count])
{
    mel::Command command;
    command.name = name;
    command.queryable = true;
    for (const Question &row : table)
        command.flags.push_back({row.shortName, row.longName});
    command.run = [&session, &table](mel::Call &call) {
        for (const Question &row : table) {
            if (call.isSet(row.longName))
                return row.answer(session);
        }
        // As for a command without arguments that wants one.
        throw mel::RuntimeError("Wrong number of arguments on call to " + call.command + ".");
    };
    session.mel().addCommand(command);
}

// The failure has been reported as Python reports it; this stops the MEL that asked.
mel::Value runPython(const mel::Call &call, Session &session)
{
    std::string text;
    call.objectText(0); // there has to be one
    for (const std::string &part : call.objectTexts())
        text += part;
    const mel::Outcome outcome = session.executePython(text, false);
    if (!outcome.ok)
        throw mel::RuntimeError("Error occurred during execution of Python script");
    return outcome.value;
}

void addPython(Session &session)
{
    mel::Command command;
    command.name = "python";
    command.objectSynopsis = "String...";
    command.run = [&session](mel::Call &call) { return runPython(call, session); };
    session.mel().addCommand(command);
}

void addQuit(Session &session)
{
    mel::Command command;
    command.name = "quit";
    command.flags = {{"a", "abort"}, {"ec", "exitCode", {ArgumentKind::Int}}, {"f", "force"}};
    // Returns at once; the script that quits runs to its end. The flags -abort and -force are
    // accepted and change nothing: there is no scene whose changes could be lost.
    command.run = [&session](mel::Call &call) -> mel::Value {
        session.requestQuit(call.integer("exitCode"));
        return {};
    };
    session.mel().addCommand(command);
}

} // namespace

void addSessionCommands(Session &session)
{
    addQuestions(session, "about", aboutTable);
    addQuestions(session, "internalVar", folderTable);
    addPython(session);
    addQuit(session);
}

} // namespace standin
