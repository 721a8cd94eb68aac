// SPDX-License-Identifier: MIT
#include "mainwindow/kestrowl.h"
#include "bridge/outputsuppression.h"
#include "plugin/mayahandler.h"
#include "standin/host/idlequeue.h"
#include "standin/python/python.h"
#include "tests/support/datatable.h"
#include "tests/support/sessionlog.h"
#include "tests/support/testmain.h"

#include <maya/MCommandMessage.h>
#include <maya/MMessage.h>

#include <QAction>
#include <QDir>
#include <QSignalSpy>

#include <memory>

namespace {

int callbackCount = 0;

void countCallbacks(const MString &, MCommandMessage::MessageType, void *)
{
    ++callbackCount;
}

} // namespace

class MayaHandlerTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void codeRunsOnIdle_data();
    void codeRunsOnIdle();
    void executionsRunInOrder();
    void togglesReachMayaAndItsOptionVariables();
    void optionVariablesReachTheWindowSilently();
    void missingOptionVariablesLeaveTheToggles();
    void scriptsAreSourcedAtOnce();
    void directPythonCanBeSilent();

private:
    void runIdle() { QVERIFY(m_session->idleQueue().processUntilEmpty()); }

    QString m_folder;
    std::unique_ptr<standin::Session> m_session;
    std::unique_ptr<SessionLog> m_log;
    std::unique_ptr<Kestrowl> m_window;
    std::unique_ptr<MayaHandler> m_handler;
};

void MayaHandlerTest::init()
{
    m_folder = QDir::tempPath() +
               QString::fromLatin1("/corvane-handler-%1").arg(QCoreApplication::applicationPid());
    QDir().mkpath(m_folder);
    standin::SessionOptions options;
    options.userDirectory = m_folder;
    m_session = std::make_unique<standin::Session>(options);
    m_session->setPython(standin::createPythonEngine(*m_session, m_session->mel()));
    m_log = std::make_unique<SessionLog>(*m_session);
    m_window = std::make_unique<Kestrowl>(m_folder, m_folder, nullptr);
    m_handler = std::make_unique<MayaHandler>(m_window.get());
}

void MayaHandlerTest::cleanup()
{
    m_handler.reset();
    m_window.reset();
    m_log.reset();
    m_session.reset();
}

void MayaHandlerTest::codeRunsOnIdle_data()
{
    columns<bool, QString, QStringList>("isPython", "code", "messages");

    const QStringList plain = strings({"display 7", "display \\n"});
    row("variable-alone-prints", false, "$foo", plain);
    row("leading-blank", false, " $foo", strings({"history  $foo\\n", "result 7"}));
    row("semicolon", false, "$foo;", strings({"history $foo;\\n", "result 7"}));
    row("dollar-alone", false, "print(\"$\")", strings({"history print(\"$\")\\n", "display $"}));
    row("python", true, "1 + 2", strings({"history 1 + 2\\n", "result 3"}));
}

void MayaHandlerTest::codeRunsOnIdle()
{
    QFETCH(bool, isPython);
    QFETCH(QString, code);
    m_session->executeMel("int $foo = 7;", false);
    m_log->take();
    if (isPython)
        m_handler->executePython(code);
    else
        m_handler->executeMel(code);
    QCOMPARE(m_log->take(), QStringList());
    runIdle();
    QTEST(m_log->take(), "messages");
}

void MayaHandlerTest::executionsRunInOrder()
{
    QMetaObject::invokeMethod(m_window.get(), "melExecuted", Q_ARG(QString, "print(\"1\")"));
    QMetaObject::invokeMethod(m_window.get(), "pythonExecuted",
                              Q_ARG(QString, "import sys; x = sys.stdout.write('2')"));
    QMetaObject::invokeMethod(m_window.get(), "melExecuted", Q_ARG(QString, "print(\"3\")"));
    runIdle();
    QCOMPARE(m_log->take().filter(QLatin1String("display")),
             strings({"display 1", "display 2", "display 3"}));
}

void MayaHandlerTest::togglesReachMayaAndItsOptionVariables()
{
    m_window->echoAllCommands(true);
    m_window->lineNumbersInErrors(false);
    m_window->lineNumbersInErrors(true);
    m_window->lineNumbersInErrors(false);
    m_window->showStackTrace(true);
    m_window->suppressStackWindow(true);
    runIdle();
    QCOMPARE(m_session->mel().settings().echoCommands, true);
    QCOMPARE(m_session->mel().settings().lineNumbers, false);
    QCOMPARE(m_session->mel().settings().stackTrace, true);
    QCOMPARE(std::get<int>(m_session->optionVar("echoAllLines")), 1);
    QCOMPARE(std::get<int>(m_session->optionVar("showLineNumbersIsOn")), 0);
    QCOMPARE(std::get<int>(m_session->optionVar("stackTraceIsOn")), 1);
    m_session->mel().settings().echoCommands = false;
    m_log->take();
    m_handler->suppressStackWindow(false);
    runIdle();
    QCOMPARE(m_log->take(), QStringList());
}

void MayaHandlerTest::optionVariablesReachTheWindowSilently()
{
    QSignalSpy echo(m_window.get(), SIGNAL(echoAllCommandsEnabled(bool)));
    m_session->setOptionVar("echoAllLines", 1);
    m_session->setOptionVar("showLineNumbersIsOn", 5);
    m_session->setOptionVar("stackTraceIsOn", 0);
    m_handler->mirrorOptionVariables();
    QCOMPARE(int(echo.count()), 0);
    m_session->setOptionVar("echoAllLines", 0);
    m_handler->mirrorOptionVariables();
    QCOMPARE(int(echo.count()), 0);
    runIdle();
    QCOMPARE(m_session->mel().settings().echoCommands, false);
    m_session->setOptionVar("echoAllLines", 1);
    m_handler->applyEchoOptionVariable();
    runIdle();
    QCOMPARE(m_session->mel().settings().echoCommands, true);
}

void MayaHandlerTest::missingOptionVariablesLeaveTheToggles()
{
    for (const char *name : {"echoAllLines", "showLineNumbersIsOn", "stackTraceIsOn"})
        m_session->removeOptionVar(name);
    m_window->showStackTrace(true, true);
    m_handler->mirrorOptionVariables();
    m_handler->applyEchoOptionVariable();
    runIdle();
    QCOMPARE(m_session->mel().settings().echoCommands, false);
    QCOMPARE(std::holds_alternative<std::monostate>(m_session->optionVar("echoAllLines")), true);
}

void MayaHandlerTest::scriptsAreSourcedAtOnce()
{
    const QString path = m_folder + QLatin1String("/sourced.mel");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("print(\"sourced\");\n");
    file.close();
    m_handler->sourceScript(path);
    QCOMPARE(m_log->take(), QStringList() << "display sourced");
    m_handler->sourceScript(m_folder + QLatin1String("/missing.mel"));
    QVERIFY(m_log->take().last().startsWith(QLatin1String("error ")));
}

void MayaHandlerTest::directPythonCanBeSilent()
{
    const MCallbackId id = MCommandMessage::addCommandOutputCallback(countCallbacks);
    callbackCount = 0;
    MayaHandler::runPython(QLatin1String("import sys; x = sys.stdout.write('a')"), true);
    MMessage::removeCallback(id);
    QVERIFY(callbackCount > 0);

    // What the silence is for: the editor's own callback drops everything meanwhile.
    QVERIFY(!isOutputSuppressed());
    const MCallbackId probe = MCommandMessage::addCommandOutputCallback(
        [](const MString &, MCommandMessage::MessageType, void *) {
            callbackCount += isOutputSuppressed() ? 1 : 1000;
        });
    callbackCount = 0;
    MayaHandler::runPython(QLatin1String("import sys; x = sys.stdout.write('a')"), false);
    MMessage::removeCallback(probe);
    QVERIFY(callbackCount > 0 && callbackCount < 1000);
    setOutputSuppressed(true);
    MayaHandler::runPython(QLatin1String("1/0"), false);
    QVERIFY(!isOutputSuppressed());
}

CORVANE_TEST_MAIN(MayaHandlerTest)
#include "tst_mayahandler.moc"
