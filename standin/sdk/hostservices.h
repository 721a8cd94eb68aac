// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/host.h"
#include "standin/mel/interpreter.h"
#include "standin/mel/value.h"

#include <functional>
#include <string>
#include <vector>

class QAction;
class QObject;
class QWidget;

namespace standin {

// A command that a plug-in registers. `run` gets the words unsplit and returns the command's value
// or throws mel::RuntimeError.
struct PluginCommand
{
    std::string name;
    std::string plugin;           // path of the plug-in that owns it
    std::vector<mel::Flag> flags; // for help and for Python's keywords
    bool queryable = false;
    bool editable = false;
    std::string objectSynopsis; // as in mel::Command
    std::function<mel::Value(const std::vector<mel::Value> &words)> run;
};

// Widgets by their interface names, short or as paths in UTF-8; null where there is none. Absent in
// a batch session. Nothing is handed over: the widgets stay the interface's.
class InterfaceLookup
{
public:
    virtual ~InterfaceLookup() = default;
    virtual QWidget *mainWindow() = 0;
    virtual QWidget *findControl(const std::string &name) = 0;
    virtual QWidget *findLayout(const std::string &name) = 0;
    virtual QWidget *findWindow(const std::string &name) = 0;
    virtual QAction *findMenuItem(const std::string &name) = 0;
    // Empty for an object that is no element of the interface.
    virtual std::string fullName(const QObject *object) = 0;
};

// What the API libraries need from the running host. All calls on the main thread but output() and
// the two idle forms. Strings are UTF-8.
class HostServices
{
public:
    virtual ~HostServices() = default;

    virtual bool isBatch() const = 0;
    virtual void output(mel::MessageKind kind, const std::string &text) = 0;
    // Where the running script is, as in front of a warning: "line 3: "; empty when none runs.
    virtual std::string scriptPlace() const { return {}; }

    // These run at once, nested in whatever is running, and never throw: what goes wrong has been
    // sent as an Error message when they return. `display` echoes the text and its value.
    virtual mel::Outcome executeMel(const std::string &text, bool display) = 0;
    virtual mel::Outcome executePython(const std::string &text, bool display) = 0;
    // A host without idle moments forgets the text.
    virtual void executeMelOnIdle(const std::string &text, bool display) = 0;
    virtual void executePythonOnIdle(const std::string &text, bool display) = 0;
    virtual mel::Outcome sourceFile(const std::string &path) = 0;
    // Runs what waits for idle time, and what that adds.
    virtual void processIdle() {}

    // Whether a loaded plug-in has this name.
    virtual bool hasPlugin(const std::string &) const { return false; }
    // False when the name is taken, or unknown.
    virtual bool registerCommand(const PluginCommand &command) = 0;
    virtual bool deregisterCommand(const std::string &name) = 0;

    // Option variables; void when there is none of that name.
    virtual mel::Value optionVar(const std::string &name) const = 0;
    virtual void setOptionVar(const std::string &name, const mel::Value &value) = 0;
    virtual bool removeOptionVar(const std::string &name) = 0;

    virtual InterfaceLookup *interfaceLookup() = 0;
};

} // namespace standin
