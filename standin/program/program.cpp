// SPDX-License-Identifier: MIT
#include "standin/program/program.h"

#include "standin/host/idlequeue.h"
#include "standin/host/pluginloader.h"
#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/program/editorsteps.h"
#include "standin/program/locations.h"
#include "standin/python/python.h"
#include "standin/ui/mainwindow.h"
#include "standin/ui/userinterface.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QTimer>

#include <cstdio>

namespace standin {

namespace {

// In the order of mel::MessageKind.
const char *const kindNames[] = {"history", "display", "info", "warning",
                                 "error",   "result",  "trace"};
const int millisecondsToRetry = 20;

SessionOptions sessionOptions(const ProgramOptions &options)
{
    SessionOptions made;
    made.batch = options.batch;
    made.closingMarks = options.closingMarks;
    made.userDirectory =
        options.userDirectory.isEmpty() ? defaultUserDirectory() : options.userDirectory;
    made.unloadsAtQuit = options.unloadsAtQuit;
    if (!defaultPlugin().isEmpty())
        made.pluginFolders << QFileInfo(defaultPlugin()).path();
    return made;
}

} // namespace

Program::Program(const ProgramOptions &options)
    : m_options(options), m_session(std::make_unique<Session>(sessionOptions(options)))
{
    // Before anything can be printed.
    if (options.log)
        connect(m_session.get(), SIGNAL(messageArrived(int, QString)),
                SLOT(logMessage(int, QString)));
    connect(m_session.get(), SIGNAL(quitRequested(int)), SLOT(leave(int)));
    m_session->setPython(createPythonEngine(*m_session, m_session->mel()));
}

Program::~Program() = default;

int Program::exitStatus() const
{
    return m_status == 0 && m_session->errorSeen() ? 1 : m_status;
}

void Program::start()
{
    // The order of the application: start-up scripts see no windows yet, plug-ins do.
    m_session->runUserSetup();
    if (!m_options.batch)
        makeInterface();
    loadPlugins();
    settle();
    nextStep();
}

void Program::makeInterface()
{
    m_interface = std::make_unique<UserInterface>(*m_session);
    m_interface->setUnattended(m_options.quits());
    connect(&m_interface->window(), SIGNAL(closeRequested()), SLOT(leave()));
    m_interface->window().show();
}

void Program::loadPlugins()
{
    QStringList plugins = m_options.plugins;
    if (plugins.isEmpty() && m_options.loadsDefaultPlugin)
        // Empty when the program stands alone, which is no error.
        plugins << defaultPlugin();
    for (const QString &plugin : plugins) {
        if (!plugin.isEmpty())
            m_session->plugins().load(plugin);
    }
}

void Program::nextStep()
{
    if (m_hasLeft)
        return;
    // With windows the program goes on, for the user.
    if (m_nextStep == m_options.steps.size()) {
        if (m_options.batch)
            leave();
        return;
    }
    run(m_options.steps[m_nextStep++]);
    // A turn of the loop, so that what the step has put off is done before the next one.
    if (!m_hasLeft)
        QTimer::singleShot(0, this, SLOT(nextStep()));
}

void Program::run(const Step &step)
{
    const std::string text = toUtf8(step.argument);
    switch (step.kind) {
    case StepKind::Mel:
        m_session->executeMel(text, true);
        break;
    case StepKind::Python:
        m_session->executePython(text, true);
        break;
    case StepKind::MelFile:
    case StepKind::PythonFile:
        runFile(step);
        break;
    case StepKind::Quit:
        leave();
        return;
    default:
        settle();
        fail(runEditorStep(*m_interface, step));
        break;
    }
    settle();
}

void Program::runFile(const Step &step)
{
    QFile file(step.argument);
    if (!file.open(QIODevice::ReadOnly)) {
        fail("Cannot read file \"" + step.argument + "\".");
        return;
    }
    const QByteArray bytes = file.readAll();
    const std::string text(bytes.constData(), static_cast<size_t>(bytes.size()));
    if (step.kind == StepKind::MelFile)
        m_session->executeMel(text, true);
    else
        m_session->executePython(text, true);
}

// Runs what was put off until the program is idle.
void Program::settle()
{
    m_session->idleQueue().processUntilEmpty();
    // Calls queued to the two by name, a script's "quit" among them.
    QApplication::sendPostedEvents(this, 0);
    QApplication::sendPostedEvents(m_session.get(), 0);
}

void Program::fail(const QString &text)
{
    if (!text.isEmpty())
        m_session->output(mel::MessageKind::Error, toUtf8(text));
}

void Program::leave(int status)
{
    if (m_hasLeft)
        return;
    m_status = status;
    // A script that lets events in may not be left on the stack, nor a dialog that it waits for.
    if (m_session->mel().isRunning()) {
        if (QWidget *dialog = m_interface ? QApplication::activeModalWidget() : nullptr)
            dialog->close();
        QTimer::singleShot(millisecondsToRetry, this, SLOT(leaveAgain()));
        return;
    }
    m_hasLeft = true;
    m_session->quit();
    QApplication::exit();
}

void Program::leaveAgain()
{
    leave(m_status);
}

void Program::interruptAndLeave()
{
    // Here, on the caller's thread: the main thread is busy with what is to be stopped.
    m_session->interrupt();
    QMetaObject::invokeMethod(this, "leave", Qt::QueuedConnection, Q_ARG(int, 0));
}

void Program::logMessage(int kind, const QString &text)
{
    QString line = text;
    line.replace("\n", "\\n");
    // One line per message, flushed, so that whoever reads along sees it at once.
    std::printf("%s\t%s\n", kindNames[kind], line.toUtf8().constData());
    std::fflush(stdout);
}

} // namespace standin
