// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/pythonengine.h"
#include "standin/mel/interpreter.h"
#include "standin/sdk/hostservices.h"

#include <QObject>
#include <QString>

#include <memory>

namespace standin {

class IdleQueue;
class OptionVars;
class OutputHistory;
class PluginLoader;
class ScriptJobs;

struct SessionOptions
{
    bool batch = false;
    QString userDirectory;          // holds prefs/ and scripts/
    bool closingMarks = true;       // the message form of releases up to 2022
    bool helpNamesCommandType = false; // "help -so" ends with the "Command Type" line
};

// One running host without its windows: interpreters, idle queue, option variables, script jobs,
// plug-ins, and the one function that every message passes. Main thread only.
class Session : public QObject, public mel::Host, public HostServices
{
    Q_OBJECT

public:
    explicit Session(const SessionOptions &options);
    ~Session() override;

    const SessionOptions &options() const;
    mel::Interpreter &mel();
    IdleQueue &idleQueue();
    OptionVars &optionVars();
    OutputHistory &history();
    PluginLoader &plugins();
    ScriptJobs &scriptJobs();

    void setPython(std::unique_ptr<PythonEngine> engine);
    void setInterface(InterfaceLookup *lookup); // not owned

    // Runs quit jobs, then unloads the plug-ins. Called once; windows still exist.
    void quit();

    // Stops whatever script is running.
    void interrupt();

    bool errorSeen() const; // any Error message so far

signals:
    // Every message in order, bare text; `kind` is a mel::MessageKind.
    void messageArrived(int kind, const QString &text);
};

} // namespace standin
