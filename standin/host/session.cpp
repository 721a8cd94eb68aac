// SPDX-License-Identifier: MIT
#include "standin/host/session.h"

#include "standin/host/hostcommands.h"
#include "standin/host/idlequeue.h"
#include "standin/host/optionvars.h"
#include "standin/host/plugincommands.h"
#include "standin/host/pluginloader.h"
#include "standin/host/scriptjobs.h"
#include "standin/host/searchpath.h"
#include "standin/host/utf8.h"
#include "standin/sdk/hostaccess.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

#include <clocale>
#include <optional>

namespace standin {

namespace {

// Marks the language that runs. A text run from within another one hands back to it; after the
// outermost one the mark stays, since the history keeps the form of what ran last.
class LanguageScope
{
public:
    LanguageScope(OutputHistory &history, int &depth, Language language)
        : m_history(history), m_depth(depth), m_outer(history.language())
    {
        ++m_depth;
        m_history.setLanguage(language);
    }
    ~LanguageScope()
    {
        if (--m_depth > 0)
            m_history.setLanguage(m_outer);
    }
    LanguageScope(const LanguageScope &) = delete;
    LanguageScope &operator=(const LanguageScope &) = delete;

private:
    OutputHistory &m_history;
    int &m_depth;
    const Language m_outer;
};

} // namespace

// Everything of a session, in the order in which it is taken down from below: plug-ins before the
// interpreter that holds their commands, jobs and idle work before the history they write to.
struct Session::Parts
{
    Parts(const SessionOptions &chosen, Session &session)
        : options(chosen), history(chosen.closingMarks), idle(!chosen.batch), jobs(session)
    {
    }

    const SessionOptions options;
    OutputHistory history;
    std::optional<mel::Interpreter> interpreter;
    IdleQueue idle;
    std::optional<OptionVars> vars;
    ScriptJobs jobs;
    std::optional<PluginCommands> commands;
    std::optional<PluginLoader> loader;
    std::unique_ptr<PythonEngine> python;
    InterfaceLookup *lookup = nullptr;
    std::function<bool()> interruptCheck;
    int runningTexts = 0; // nested within each other
    bool errorSeen = false;
    bool hasQuit = false;
};

Session::Session(const SessionOptions &options) : m_parts(std::make_unique<Parts>(options, *this))
{
    // Numbers are read and written with a point, whatever the user's locale.
    std::setlocale(LC_NUMERIC, "C");
    // From here on the API works, before anything that a plug-in or a script could call.
    setHostServices(this);
    applyVariables(readModules(userModules())); // the search paths among them
    // In place only now, for the interpreter may call back at once.
    m_parts->interpreter.emplace(*this);
    mel().settings().helpNamesCommandType = options.helpNamesCommandType;
    m_parts->vars.emplace(userFolder("prefs") + "userPrefs.mel");
    m_parts->commands.emplace(mel());
    m_parts->loader.emplace(*this, *m_parts->commands, [this] { return pluginFolders(); });
    addSessionCommands(*this);
    addPluginManagement(*this);
    addOptionVarCommand(*this);
    addScriptJobCommand(*this);
    addScriptEditorCommand(*this);
}

// Deliberate: without quit() no quit jobs run, but no plug-in outlives the interpreters unasked.
Session::~Session()
{
    if (m_parts->options.unloadsAtQuit)
        plugins().unloadAll();
    else
        plugins().leaveMapped();
    optionVars().save();
    // While the API still works: what scripts do at exit may use it.
    m_parts->python.reset();
    setHostServices(nullptr);
}

const SessionOptions &Session::options() const
{
    return m_parts->options;
}

mel::Interpreter &Session::mel()
{
    return *m_parts->interpreter;
}

IdleQueue &Session::idleQueue()
{
    return m_parts->idle;
}

OptionVars &Session::optionVars()
{
    return *m_parts->vars;
}

OutputHistory &Session::history()
{
    return m_parts->history;
}

PluginLoader &Session::plugins()
{
    return *m_parts->loader;
}

ScriptJobs &Session::scriptJobs()
{
    return m_parts->jobs;
}

const PluginCommands &Session::pluginCommands() const
{
    return *m_parts->commands;
}

bool Session::errorSeen() const
{
    return m_parts->errorSeen;
}

void Session::setPython(std::unique_ptr<PythonEngine> engine)
{
    m_parts->python = std::move(engine);
}

void Session::setInterface(InterfaceLookup *lookup)
{
    m_parts->lookup = lookup;
}

InterfaceLookup *Session::interfaceLookup()
{
    return m_parts->lookup;
}

bool Session::isBatch() const
{
    return m_parts->options.batch;
}

// Made on demand rather than at the start, so that a session that asks for nothing leaves nothing
// behind in the user's directory.
QString Session::userFolder(const QString &name) const
{
    const QDir user(m_parts->options.userDirectory);
    const QString folder = QDir::cleanPath(user.absoluteFilePath(name));
    QDir().mkpath(folder);
    return folder + "/";
}

void Session::runUserSetup()
{
    // Python first: what it defines is there for MEL.
    if (m_parts->python)
        executePython("__import__('maya.utils').utils._runUserSetup()", false);
    for (const std::string &folder : scriptPath()) {
        const QString file = QDir(toQt(folder)).filePath("userSetup.mel");
        if (QFileInfo(file).isFile()) {
            sourceFile(toUtf8(file));
            return;
        }
    }
}

void Session::quit()
{
    if (m_parts->hasQuit)
        return;
    // First: a quit job may let events in, and with them a second request.
    m_parts->hasQuit = true;
    // While windows, plug-ins and interpreters are all there.
    scriptJobs().runNow("quitApplication");
    if (m_parts->options.unloadsAtQuit)
        plugins().unloadAll();
    // What the plug-ins have queued to tidy up after them; bounded, for work may queue itself.
    idleQueue().processUntilEmpty(100);
    saveUserFiles();
}

void Session::saveUserFiles()
{
    optionVars().save();
    // The shelves are the interface library's, so a session without windows has no such procedure.
    if (interfaceLookup() && mel().hasProcedure("saveAllShelves"))
        executeMel("global string $gShelfTopLevel; saveAllShelves($gShelfTopLevel);", false);
}

// Through the event loop: a script that quits is running, and may have come from a plug-in whose
// code must not be unloaded below it.
void Session::requestQuit(int exitStatus)
{
    QMetaObject::invokeMethod(this, "emitQuitRequested", Qt::QueuedConnection,
                              Q_ARG(int, exitStatus));
}

void Session::emitQuitRequested(int exitStatus)
{
    emit quitRequested(exitStatus);
}

void Session::interrupt()
{
    // Both, since either may run inside the other.
    mel().interrupt();
    if (m_parts->python)
        m_parts->python->interrupt();
}

void Session::setInterruptCheck(std::function<bool()> check)
{
    m_parts->interruptCheck = std::move(check);
}

bool Session::interruptRequested()
{
    return m_parts->interruptCheck && m_parts->interruptCheck();
}

void Session::message(mel::MessageKind kind, const std::string &text)
{
    output(kind, text);
}

// Callbacks come last: one that asks for the history finds the message it is called for, and what
// it prints itself follows that message everywhere.
void Session::output(mel::MessageKind kind, const std::string &text)
{
    // Python's threads print, but callbacks and widgets belong to the main thread.
    if (QThread::currentThread() != thread()) {
        QMetaObject::invokeMethod(this, "deliver", Qt::QueuedConnection,
                                  Q_ARG(int, static_cast<int>(kind)), Q_ARG(QString, toQt(text)));
        return;
    }
    // Counted even if nobody is shown the message: the exit status tells of it.
    m_parts->errorSeen = m_parts->errorSeen || kind == mel::MessageKind::Error;
    // Before the filters, for the log and the command line show everything.
    emit messageArrived(static_cast<int>(kind), toQt(text));
    if (!isHiddenByFilter(kind, text)) {
        const std::string shown = history().shown(kind, text);
        history().append(shown);
        if (!shown.empty())
            emit historyGrew(toQt(shown));
    }
    dispatchOutput(kind, text);
}

std::string Session::scriptPlace() const
{
    return m_parts->interpreter->placePrefix();
}

void Session::deliver(int kind, const QString &text)
{
    output(static_cast<mel::MessageKind>(kind), toUtf8(text));
}

mel::Outcome Session::executeMel(const std::string &text, bool display)
{
    const LanguageScope scope(history(), m_parts->runningTexts, Language::Mel);
    return mel().execute(text, display);
}

mel::Outcome Session::executePython(const std::string &text, bool display)
{
    const LanguageScope scope(history(), m_parts->runningTexts, Language::Python);
    if (m_parts->python)
        return m_parts->python->execute(text, display);
    mel::Outcome failure{false, {}, "Python is not available in this session."};
    output(mel::MessageKind::Error, failure.error);
    return failure;
}

void Session::executeMelOnIdle(const std::string &text, bool display)
{
    // By value: the text outlives the call.
    idleQueue().add([=] { executeMel(text, display); }, mel::IdlePriority::Normal, text);
}

void Session::executePythonOnIdle(const std::string &text, bool display)
{
    idleQueue().add([=] { executePython(text, display); });
}

// Deferred code never echoes: only what is typed or executed with display does.
void Session::deferMel(const std::string &text, mel::IdlePriority priority)
{
    idleQueue().add([=] { executeMel(text, false); }, priority, text);
}

std::vector<std::string> Session::deferredMel() const
{
    return m_parts->idle.waitingTexts();
}

mel::Outcome Session::sourceFile(const std::string &path)
{
    const LanguageScope scope(history(), m_parts->runningTexts, Language::Mel);
    return mel().sourceFile(path);
}

void Session::processIdle()
{
    idleQueue().processUntilEmpty();
}

QString Session::userModules() const
{
    return QDir(m_parts->options.userDirectory).absoluteFilePath("modules");
}

// Where plug-ins are looked up by name besides the search path: what the user has added comes
// before the program's own.
QStringList Session::pluginFolders() const
{
    const QDir user(m_parts->options.userDirectory);
    return QStringList() << user.absoluteFilePath("plug-ins") << readModules(userModules()).plugins
                         << m_parts->options.pluginFolders;
}

// Read afresh each time, since scripts extend the path with putenv.
std::vector<std::string> Session::scriptPath() const
{
    const QStringList folders = QStringList()
                                << userFolder("scripts") << foldersInEnvironment("MAYA_SCRIPT_PATH")
                                << readModules(userModules()).scripts;
    std::vector<std::string> path;
    for (const QString &folder : folders)
        path.push_back(toUtf8(folder));
    return path;
}

// What follows is the API libraries' way in; the work is done by the parts.
bool Session::hasPlugin(const std::string &name) const
{
    return m_parts->loader->names().contains(toQt(name));
}

bool Session::registerCommand(const PluginCommand &command)
{
    return m_parts->commands->add(command);
}

bool Session::deregisterCommand(const std::string &name)
{
    return m_parts->commands->remove(name);
}

mel::Value Session::optionVar(const std::string &name) const
{
    return m_parts->vars->value(name);
}

void Session::setOptionVar(const std::string &name, const mel::Value &value)
{
    optionVars().set(name, value);
}

bool Session::removeOptionVar(const std::string &name)
{
    return optionVars().remove(name);
}

} // namespace standin
