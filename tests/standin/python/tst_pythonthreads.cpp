// SPDX-License-Identifier: MIT
#include "tests/standin/python/pythontest.h"
#include "tests/support/testmain.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QObject>
#include <QThread>
#include <QWidget>

namespace {

const int patience = 20000; // milliseconds

class ShortSleep : public QThread
{
public:
    using QThread::msleep;
};

} // namespace

// Threads that scripts start, and the bindings of Qt.
class TestPythonThreads : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_python.reset(); }

    void threadsRunWhileTheHostIsIdle();
    void threadsPrint();
    void threadFetchesAValueFromTheMainThread();
    void threadGetsTheExceptionOfTheMainThread();
    void commandsAreRefusedOnThreads();
    void failingThreadIsShown();
    void waitingForTheMainThreadIsRefusedInBatch();
    void bindingsOfQtSeeTheApplication();
    void exceptionInASlotIsReported();
    void widgetsOfScriptsGoWithTheEngine();

private:
    QString value(const QString &expression) { return m_python->value(expression); }
    // Lets threads run, doing idle work, until the expression is true.
    bool waitFor(const QString &expression);
    bool importQt();

    std::unique_ptr<PythonTest> m_python;
};

void TestPythonThreads::init()
{
    m_python.reset(new PythonTest);
    QVERIFY(m_python->isStarted());
    m_python->run("import threading, maya.utils as utils, maya.cmds as cmds\n"
                  "def start(f):\n"
                  "  global thread\n"
                  "  thread = threading.Thread(target=f)\n"
                  "  thread.start()\n");
}

bool TestPythonThreads::waitFor(const QString &expression)
{
    QElapsedTimer timer;
    timer.start();
    while (value("bool(" + expression + ")") != "True") {
        if (timer.elapsed() > patience)
            return false;
        m_python->host.processIdle();
        ShortSleep::msleep(1);
    }
    return true;
}

void TestPythonThreads::threadsRunWhileTheHostIsIdle()
{
    m_python->run("import time\n"
                  "def work():\n"
                  "  for i in range(5): time.sleep(0.001)\n"
                  "  print('worked')\n"
                  "start(work)");
    QString displayed;
    QElapsedTimer timer;
    timer.start();
    // No Python runs on this thread meanwhile.
    while (!displayed.contains("worked") && timer.elapsed() < patience) {
        displayed += m_python->host.takeDisplayed();
        ShortSleep::msleep(1);
    }
    QVERIFY(displayed.contains("worked"));
}

void TestPythonThreads::threadsPrint()
{
    m_python->run("threads = [threading.Thread(target=lambda: [print('line') for i in range(500)])"
                  " for n in range(4)]\n"
                  "for t in threads: t.start()\n"
                  "for t in threads: t.join()");
    QCOMPARE(m_python->host.takeDisplayed().count("line"), 2000);
}

void TestPythonThreads::threadFetchesAValueFromTheMainThread()
{
    m_python->run(
        "def work():\n"
        "  global got\n"
        "  here = threading.current_thread()\n"
        "  got = [utils.executeInMainThreadWithResult('6 * 7'),\n"
        "         utils.executeInMainThreadWithResult(threading.current_thread) is not here]\n"
        "start(work)");
    QVERIFY(waitFor("not thread.is_alive()"));
    QCOMPARE(value("got"), QString("[42, True]"));
    QCOMPARE(value("utils.executeInMainThreadWithResult(len, 'abc')"), QString("3"));
}

void TestPythonThreads::threadGetsTheExceptionOfTheMainThread()
{
    m_python->run("def work():\n"
                  "  global got\n"
                  "  try: utils.executeInMainThreadWithResult('1 / 0')\n"
                  "  except ZeroDivisionError as error: got = str(error)\n"
                  "start(work)");
    QVERIFY(waitFor("not thread.is_alive()"));
    QCOMPARE(value("got"), QString("division by zero"));
    QCOMPARE(m_python->host.takeMessages(), QStringList());
}

void TestPythonThreads::commandsAreRefusedOnThreads()
{
    m_python->run("def work():\n"
                  "  global got\n"
                  "  try: cmds.about(version=True)\n"
                  "  except RuntimeError as error: got = str(error)\n"
                  "start(work)\nthread.join()");
    QVERIFY2(value("got").contains("main thread"), qPrintable(value("got")));
}

void TestPythonThreads::failingThreadIsShown()
{
    m_python->run("start(lambda: 1 / 0)\nthread.join()");
    QVERIFY(m_python->host.takeDisplayed().contains("ZeroDivisionError: division by zero"));
}

void TestPythonThreads::waitingForTheMainThreadIsRefusedInBatch()
{
    m_python->host.batch = true;
    m_python->run("def work():\n"
                  "  global got\n"
                  "  try: utils.executeInMainThreadWithResult('1')\n"
                  "  except RuntimeError as error: got = str(error)\n"
                  "start(work)\nthread.join()");
    QVERIFY2(value("got").contains("no idle time"), qPrintable(value("got")));
}

bool TestPythonThreads::importQt()
{
    const QString binding = QString("PyQt%1").arg(QString(qVersion()).left(1));
    return m_python->run("from " + binding + " import QtCore, QtWidgets").ok;
}

#define SKIP_WITHOUT_BINDING()                                                                     \
    if (!importQt())                                                                               \
    return qWarning("left out: no Python binding of this Qt is installed")

void TestPythonThreads::bindingsOfQtSeeTheApplication()
{
    SKIP_WITHOUT_BINDING();
    qApp->setObjectName("the host");
    QCOMPARE(value("QtWidgets.QApplication.instance().objectName()"), QString("the host"));
}

void TestPythonThreads::exceptionInASlotIsReported()
{
    SKIP_WITHOUT_BINDING();
    m_python->run("timer = QtCore.QTimer()\n"
                  "timer.setSingleShot(True)\n"
                  "timer.timeout.connect(lambda: 1 / 0)\n"
                  "timer.start(0)");
    QElapsedTimer clock;
    clock.start();
    QStringList messages;
    while (messages.isEmpty() && clock.elapsed() < patience) {
        QCoreApplication::processEvents();
        messages = m_python->host.takeMessages();
    }
    QCOMPARE(messages,
             QStringList("error|ZeroDivisionError: file <maya console> line 3: division by zero"));
}

void TestPythonThreads::widgetsOfScriptsGoWithTheEngine()
{
    SKIP_WITHOUT_BINDING();
    m_python->run(
        "label = QtWidgets.QLabel('text')\nlabel.setObjectName('of a script')\nlabel.show()");
    const auto isThere = [] {
        for (const QWidget *widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == "of a script")
                return true;
        }
        return false;
    };
    QVERIFY(isThere());
    m_python->endEngine();
    QVERIFY(!isThere());
}

CORVANE_TEST_MAIN(TestPythonThreads)
#include "tst_pythonthreads.moc"
