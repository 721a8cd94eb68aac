// SPDX-License-Identifier: MIT
#include "standin/host/idlequeue.h"
#include "standin/host/scriptjobs.h"
#include "tests/standin/host/testsession.h"
#include "tests/support/testmain.h"

#include <QCoreApplication>
#include <QElapsedTimer>

class TestScriptJobs : public QObject
{
    Q_OBJECT

private slots:
    void jobsRunOnceAtIdleHoweverOftenTheEventCame();
    void protectedJobsDieByForceOnly();
    void permanentJobsNeverDie();
    void killAllSparesProtectedJobs();
    void aJobMayKillItself();
    void aJobKilledBeforeIdleDoesNotRun();
    void runOnceJobsAreGoneAfterwards();
    void idleJobsRunAgainAndAgain();
    void jobsDieWithTheirParent();
    void jobsAreListedAsTheyWereMade();
    void onlyEventsRunTheJobsOfEvents();
    void quitJobsRunAtOnceAndOnlyOnce();
    void badRequestsAreErrors_data();
    void badRequestsAreErrors();
    void batchSessionsHaveNoJobs();
};

void TestScriptJobs::jobsRunOnceAtIdleHoweverOftenTheEventCame()
{
    TestSession session;
    QCOMPARE(session.value("scriptJob -event \"SelectionChanged\" \"print \\\"job\\\"\""),
             QString("1"));
    session->scriptJobs().fire("SelectionChanged");
    session->scriptJobs().fire("SelectionChanged");
    session->scriptJobs().fire("Undo");
    QCOMPARE(session.takeMessages(), QStringList());
    session->idleQueue().processUntilEmpty();
    QCOMPARE(session.takeMessages(), QStringList() << "display: job");
    session->scriptJobs().fire("SelectionChanged");
    session->idleQueue().processUntilEmpty();
    QCOMPARE(session.takeMessages(), QStringList() << "display: job");
}

void TestScriptJobs::protectedJobsDieByForceOnly()
{
    TestSession session;
    const QString number = session.value("scriptJob -e \"quitApplication\" \"x\" -protected");
    QVERIFY(!session.run("scriptJob -kill " + number));
    QCOMPARE(session.value("scriptJob -exists " + number), QString("1"));
    QVERIFY(session.run("scriptJob -f -k " + number));
    QCOMPARE(session.value("scriptJob -exists " + number), QString("0"));
}

void TestScriptJobs::permanentJobsNeverDie()
{
    TestSession session;
    const QString number = session.value("scriptJob -permanent -e \"Undo\" \"x\"");
    QVERIFY(!session.run("scriptJob -force -kill " + number));
    QVERIFY(session.run("scriptJob -force -killAll"));
    QCOMPARE(session.value("scriptJob -exists " + number), QString("1"));
}

void TestScriptJobs::killAllSparesProtectedJobs()
{
    TestSession session;
    session.run("scriptJob -e \"Undo\" \"x\"; scriptJob -pro -e \"Redo\" \"y\"");
    QVERIFY(session.run("scriptJob -killAll"));
    QCOMPARE(session->scriptJobs().descriptions().size(), size_t(1));
    QVERIFY(session.run("scriptJob -ka -f"));
    QVERIFY(session->scriptJobs().descriptions().empty());
}

void TestScriptJobs::aJobMayKillItself()
{
    TestSession session;
    session.run("scriptJob -e \"Undo\" \"scriptJob -k 1; print \\\"after\\\"\"");
    session->scriptJobs().fire("Undo");
    session->idleQueue().processUntilEmpty();
    QCOMPARE(session.takeMessages(), QStringList() << "display: after");
    QVERIFY(!session->scriptJobs().exists(1));
}

void TestScriptJobs::aJobKilledBeforeIdleDoesNotRun()
{
    TestSession session;
    session.run("scriptJob -e \"Undo\" \"print 1\"");
    session->scriptJobs().fire("Undo");
    session.run("scriptJob -k 1");
    session->idleQueue().processUntilEmpty();
    QCOMPARE(session.takeMessages(), QStringList());
}

void TestScriptJobs::runOnceJobsAreGoneAfterwards()
{
    TestSession session;
    session.run("scriptJob -runOnce true -e \"Undo\" \"print \\\"once\\\"\"");
    for (int i = 0; i < 2; ++i) {
        session->scriptJobs().fire("Undo");
        session->idleQueue().processUntilEmpty();
    }
    QCOMPARE(session.takeMessages(), QStringList() << "display: once");
}

void TestScriptJobs::idleJobsRunAgainAndAgain()
{
    TestSession session;
    const QString number = session.value("scriptJob -idleEvent \"print \\\"i\\\"\"");
    QStringList messages;
    QElapsedTimer timer;
    timer.start();
    while (messages.size() < 3 && timer.elapsed() < 5000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        messages << session.takeMessages();
    }
    QVERIFY(messages.size() >= 3);
    QVERIFY(session.run("scriptJob -kill " + number));
}

void TestScriptJobs::jobsDieWithTheirParent()
{
    TestSession session;
    session.run("scriptJob -parent \"win\" -e \"Undo\" \"x\"; scriptJob -e \"Undo\" \"y\"");
    session->scriptJobs().killChildrenOf("win");
    QVERIFY(!session->scriptJobs().exists(1));
    QVERIFY(session->scriptJobs().exists(2));
}

void TestScriptJobs::jobsAreListedAsTheyWereMade()
{
    TestSession session;
    session.run("scriptJob -event \"quitApplication\" \"corvaneEditor -ws\" -protected");
    QCOMPARE(session.value("scriptJob -listJobs"),
             QString("1: \"-protected\" \"-event\" \"quitApplication\" \"corvaneEditor -ws\""));
    session.run("scriptJob -kill 1 -force; scriptJob -ct \"busy\" \"x\"; scriptJob -ac \"a.tx\" "
                "\"y\"; scriptJob -ie \"z\"");
    QCOMPARE(session.value("scriptJob -listJobs"),
             QString("2: \"-conditionTrue\" \"busy\" \"x\" 3: \"-attributeChange\" \"a.tx\" \"y\" "
                     "4: \"-idleEvent\" \"z\""));
}

void TestScriptJobs::onlyEventsRunTheJobsOfEvents()
{
    TestSession session;
    session.run(
        "scriptJob -ct \"Undo\" \"print \\\"c\\\"\"; scriptJob -ac \"Undo\" \"print \\\"a\\\"\"");
    session->scriptJobs().fire("Undo");
    session->idleQueue().processUntilEmpty();
    QCOMPARE(session.takeMessages(), QStringList());
}

void TestScriptJobs::quitJobsRunAtOnceAndOnlyOnce()
{
    TestSession session;
    session.run("scriptJob -e \"quitApplication\" \"print \\\"bye\\\"\" -protected");
    session->quit();
    session->quit();
    QCOMPARE(session.takeMessages(), QStringList() << "display: bye");
}

void TestScriptJobs::badRequestsAreErrors_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("unknown-event") << "scriptJob -e \"NoSuchEvent\" \"x\"";
    QTest::newRow("nothing-to-wait-for") << "scriptJob -protected";
    QTest::newRow("unknown-number") << "scriptJob -kill 99";
}

void TestScriptJobs::badRequestsAreErrors()
{
    QFETCH(QString, text);
    TestSession session;
    QVERIFY(!session.run(text));
    QVERIFY(session->errorSeen());
}

void TestScriptJobs::batchSessionsHaveNoJobs()
{
    standin::SessionOptions options;
    options.batch = true;
    TestSession session(options);
    QCOMPARE(session.value("scriptJob -e \"quitApplication\" \"print 1\""), QString("0"));
    session->quit();
    QCOMPARE(session.takeMessages(), QStringList());
}

CORVANE_TEST_MAIN(TestScriptJobs)
#include "tst_scriptjobs.moc"
