// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/outputhistory.h"
#include "standin/host/pythonengine.h"
#include "standin/mel/interpreter.h"
#include "standin/sdk/hostservices.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace standin {

class IdleQueue;
class OptionVars;
class PluginCommands;
class PluginLoader;
class ScriptJobs;

struct SessionOptions
{
    bool batch = false;
    QString userDirectory;    // holds prefs/, scripts/, plug-ins/, modules/; made when needed
    bool closingMarks = true; // the message form of releases up to 2022
    bool helpNamesCommandType = false; // "help -so" ends with the "Command Type" line
    bool unloadsAtQuit = true;         // else plug-ins stay loaded to the end of the program
    QStringList pluginFolders;         // the program's own, for plug-ins given by name
};

// One running host without its windows: interpreters, idle queue, option variables, script jobs,
// plug-ins, and the one function that every message passes. One at a time, main thread only unless
// said otherwise.
//
// The order of a life: the session, setPython(), runUserSetup(), the interface with setInterface(),
// plug-ins, quit(); the interface goes before the session.
class Session : public QObject, public mel::Host, public HostServices
{
    Q_OBJECT

public:
    explicit Session(const SessionOptions &options);
    ~Session() override;

    const SessionOptions &options() const;
    // The parts live exactly as long as the session.
    mel::Interpreter &mel();
    IdleQueue &idleQueue();
    OptionVars &optionVars();
    OutputHistory &history();
    PluginLoader &plugins();
    const PluginCommands &pluginCommands() const;
    ScriptJobs &scriptJobs();

    // Takes the engine, which may be null; Python's commands fail without one.
    void setPython(std::unique_ptr<PythonEngine> engine);
    void setInterface(InterfaceLookup *lookup); // not owned

    // "prefs", "scripts", ...: the folder in the user's directory, with forward slashes and a
    // slash at its end; made when missing.
    QString userFolder(const QString &name) const;

    // Runs every userSetup.py on Python's path and the first userSetup.mel on the script path;
    // before there are windows.
    void runUserSetup();
    // Runs quit jobs, then unloads the plug-ins if the options say so, and saves what the user has
    // changed. Only the first call counts; windows still exist.
    void quit();
    // Asks the program to quit once the running script is done: quitRequested() follows.
    void requestQuit(int exitStatus);

    // Stops whatever script is running. From any thread.
    void interrupt();
    // Asked now and then while MEL runs; an answer of true stops it.
    void setInterruptCheck(std::function<bool()> check);

    bool errorSeen() const; // any Error message so far

    // The interpreter's view.
    void message(mel::MessageKind kind, const std::string &text) override;
    void deferMel(const std::string &text, mel::IdlePriority priority) override;
    std::vector<std::string> deferredMel() const override;
    std::vector<std::string> scriptPath() const override;
    bool interruptRequested() override;

    // The API libraries' view; C++ of the host itself uses it as well. From another thread,
    // output() delivers its message when the main thread gets to it.
    bool isBatch() const override;
    void output(mel::MessageKind kind, const std::string &text) override;
    std::string scriptPlace() const override;
    mel::Outcome executeMel(const std::string &text, bool display) override;
    mel::Outcome executePython(const std::string &text, bool display) override;
    void executeMelOnIdle(const std::string &text, bool display) override;
    void executePythonOnIdle(const std::string &text, bool display) override;
    mel::Outcome sourceFile(const std::string &path) override;
    void processIdle() override;
    bool hasPlugin(const std::string &name) const override;
    bool registerCommand(const PluginCommand &command) override;
    bool deregisterCommand(const std::string &name) override;
    mel::Value optionVar(const std::string &name) const override;
    void setOptionVar(const std::string &name, const mel::Value &value) override;
    bool removeOptionVar(const std::string &name) override;
    InterfaceLookup *interfaceLookup() override;

signals:
    // Every message in order, bare text; `kind` is a mel::MessageKind.
    void messageArrived(int kind, const QString &text);
    // What the history has just gained: the message with its heading and closing mark.
    void historyGrew(const QString &shownText);
    // The program should call quit() and leave its event loop.
    void quitRequested(int exitStatus);

private slots:
    void deliver(int kind, const QString &text);
    void emitQuitRequested(int exitStatus);

private:
    struct Parts;

    QString userModules() const;
    QStringList pluginFolders() const;
    void saveUserFiles();

    std::unique_ptr<Parts> m_parts;
};

} // namespace standin
