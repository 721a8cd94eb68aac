// SPDX-License-Identifier: MIT
#include "standin/host/scriptjobs.h"
#include "standin/host/session.h"
#include "standin/python/python.h"
#include "tests/support/datatable.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QStringList>
#include <QThread>

#include <atomic>
#include <memory>
#include <thread>

using standin::Session;
using standin::SessionOptions;

// Python in a whole session: idle queue, event loop, the command `python`.
class TestPythonSession : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void melRunsPython();
    void failureReachesMel();
    void deferredTextRunsInTheEventLoop();
    void outputOfThreadsArrivesOnTheMainThread();
    void threadsWaitForTheEventLoop();
    void interruptEndsBothLanguages();
    void userScriptsCanBeImported();
    void everyUserSetupRuns();
    void sessionCommandsTakePythonForms_data();
    void sessionCommandsTakePythonForms();
    void scriptJobCallsPython();

    // Receiver of the session's messages.
    void keepMessage(int kind, const QString &text);

private:
    void run(const char *text) { m_session->executePython(text, false); }
    bool waitForMessage(const QString &message);

    std::unique_ptr<Session> m_session;
    QStringList m_messages;
    bool m_allOnMainThread = true;
    std::atomic<bool> m_anyMessage{false};
};

void TestPythonSession::init()
{
    SessionOptions options;
    options.userDirectory = QDir::current().filePath("tst_pythonsession-user");
    m_session.reset(new Session(options));
    m_session->setPython(standin::createPythonEngine(*m_session, m_session->mel()));
    connect(m_session.get(), SIGNAL(messageArrived(int, QString)), SLOT(keepMessage(int, QString)));
    m_messages.clear();
}

void TestPythonSession::cleanup()
{
    m_session.reset();
}

void TestPythonSession::keepMessage(int, const QString &text)
{
    m_allOnMainThread = m_allOnMainThread && QThread::currentThread() == thread();
    m_messages << text;
    m_anyMessage = true;
}

bool TestPythonSession::waitForMessage(const QString &message)
{
    QElapsedTimer timer;
    timer.start();
    while (!m_messages.contains(message) && timer.elapsed() < 20000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return m_messages.contains(message);
}

void TestPythonSession::melRunsPython()
{
    const mel::Outcome outcome = m_session->executeMel("int $n = python(\"6 * 7\"); $n", false);
    QVERIFY2(outcome.ok, outcome.error.c_str());
    QCOMPARE(std::get<int>(outcome.value), 42);
}

void TestPythonSession::failureReachesMel()
{
    QCOMPARE(std::get<int>(m_session->executeMel("catch(python(\"1 / 0\"))", false).value), 1);
    QVERIFY(m_session->errorSeen());
}

void TestPythonSession::deferredTextRunsInTheEventLoop()
{
    run("import maya.utils\nmaya.utils.executeDeferred(print, 'later')");
    QVERIFY(!m_messages.contains("later"));
    QVERIFY(waitForMessage("later"));
}

void TestPythonSession::outputOfThreadsArrivesOnTheMainThread()
{
    run("import threading\nthreading.Thread(target=lambda: print('from a thread')).start()");
    QVERIFY(waitForMessage("from a thread"));
    QVERIFY(m_allOnMainThread);
}

void TestPythonSession::threadsWaitForTheEventLoop()
{
    run("import threading, maya.utils as utils, maya.mel as mel\n"
        "def work(): print(utils.executeInMainThreadWithResult(mel.eval, '1 + 2'))\n"
        "threading.Thread(target=work).start()");
    QVERIFY(waitForMessage("3"));
}

void TestPythonSession::interruptEndsBothLanguages()
{
    run("import maya.mel as mel");
    m_anyMessage = false;
    std::thread user([this] {
        while (!m_anyMessage)
            std::this_thread::yield();
        m_session->interrupt();
    });
    run("mel.eval('print \\\"running\\\"; while (1) {}')");
    user.join();
    QCOMPARE(m_messages.filter("Interrupted.").size(), 2); // of MEL, and of Python told by MEL
    run("print('goes on')");
    QVERIFY(m_messages.contains("goes on"));
}

void TestPythonSession::userScriptsCanBeImported()
{
    QFile file(m_session->userFolder("scripts") + "scriptofuser.py");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("value = 'of the user'\n");
    file.close();
    run("import scriptofuser\nprint(scriptofuser.value)");
    QVERIFY2(m_messages.contains("of the user"), qPrintable(m_messages.join("\n")));
    QVERIFY(!QDir(m_session->userFolder("scripts")).exists("__pycache__"));
}

void TestPythonSession::everyUserSetupRuns()
{
    const ScratchDir first;
    const ScratchDir second;
    const ScratchDir third;
    first.write("userSetup.py", "defined = 7\ndef fail(): raise ValueError('f')\nfail()\n");
    second.write("userSetup.py", "def broken(\n");
    third.write("userSetup.py", "print('third %d' % defined)\n");
    run(("import sys\nsys.path += '" + first.path() + " " + second.path() + " " + third.path() +
         "'.split()")
            .toUtf8()
            .constData());
    m_session->runUserSetup();
    run("del sys.path[-3:]");
    QCOMPARE(m_messages.at(0), "ValueError: file " + first.file("userSetup.py") + " line 2: f");
    QVERIFY(m_messages.at(1).startsWith("SyntaxError: file " + second.file("userSetup.py")));
    QVERIFY2(m_messages.contains("third 7"), qPrintable(m_messages.join("\n")));
}

void TestPythonSession::sessionCommandsTakePythonForms_data()
{
    columns<QString, QString>("expression", "expected");

    row("stored-value", "cmds.optionVar(iv=('count', 3)), cmds.optionVar(q='count')", "(None, 3)");
    row("existence", "cmds.optionVar(exists='no such name')", "False");
    row("list", "'SceneOpened' in cmds.scriptJob(listEvents=True)", "True");
    row("folder", "cmds.internalVar(usd=True)[-9:]", "/scripts/");
    row("mel-procedure", "mel.eval('startsWith(\"abc\", \"ab\")')", "1");
}

void TestPythonSession::sessionCommandsTakePythonForms()
{
    QFETCH(QString, expression);
    QFETCH(QString, expected);
    run("import maya.cmds as cmds, maya.mel as mel");
    run(("print(str((" + expression + ")))").toUtf8().constData());
    QCOMPARE(m_messages.join(""), expected + "\n");
}

void TestPythonSession::scriptJobCallsPython()
{
    run("import maya.cmds as cmds\n"
        "cmds.scriptJob(e=['SceneOpened', lambda: print('called')], ro=True)");
    m_session->scriptJobs().fire("SceneOpened");
    QVERIFY(waitForMessage("called"));
}

CORVANE_TEST_MAIN(TestPythonSession)
#include "tst_pythonsession.moc"
