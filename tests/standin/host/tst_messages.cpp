// SPDX-License-Identifier: MIT
#include "standin/host/idlequeue.h"
#include "tests/standin/host/testsession.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <maya/MCommandMessage.h>
#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>

#include <QCoreApplication>
#include <QSignalSpy>

#include <stdexcept>
#include <thread>

// What a plug-in's output callback receives, and in which order.
class TestMessages : public QObject
{
    Q_OBJECT

private slots:
    void executedMelReports_data();
    void executedMelReports();
    void idleTextsReportInTheirOrder();
    void theApiShowsItsTextsUnchanged();
    void aCallbackMayRunCommands();
    void anEndlessCallbackIsReportedOnce();
    void whatACallbackPrintsFollowsItsMessage();
    void aFilterKeepsMessagesOutOfTheHistory();
    void anEscapingExceptionIsReported();
    void messagesOfOtherThreadsArriveOnTheMainThread();
    void listenersGetBareAndShownText();
};

void TestMessages::executedMelReports_data()
{
    columns<QString, bool, QStringList>("text", "display", "expected");
    row("echo-output-result", "print \"out\\n\"; $a = 5;", true,
        strings({"history: print \"out\\n\"; $a = 5;\n", "display: out\n", "result: 5"}));
    row("no-value-no-result", "print \"x\";", true,
        strings({"history: print \"x\";\n", "display: x"}));
    row("display-off", "print \"x\"; $a = 5;", false, QStringList("display: x"));
    row("failing-with-display-off", "noSuchThing", false,
        QStringList("error: line 1: Cannot find procedure \"noSuchThing\"."));
    row("failing-host-command", "loadPlugin \"missing\"", false,
        QStringList()
            << "error: line 1: Plug-in, \"missing\", was not found on MAYA_PLUG_IN_PATH.");
}

void TestMessages::executedMelReports()
{
    QFETCH(QString, text);
    QFETCH(bool, display);
    QFETCH(QStringList, expected);
    TestSession session;
    MGlobal::executeCommand(MQtUtil::toMString(text), display);
    QCOMPARE(session.takeMessages(), expected);
}

void TestMessages::idleTextsReportInTheirOrder()
{
    TestSession session;
    MGlobal::executeCommandOnIdle("print \"api\"");
    session->deferMel("print \"lowest\"", mel::IdlePriority::Lowest);
    session->deferMel("print \"mel\"", mel::IdlePriority::Normal);
    MGlobal::executeCommandOnIdle("$b = 2;", true);
    QCOMPARE(session->deferredMel(), (std::vector<std::string>{"print \"api\"", "print \"mel\"",
                                                               "$b = 2;", "print \"lowest\""}));
    QCOMPARE(session.takeMessages(), QStringList());
    session->idleQueue().processUntilEmpty();
    QCOMPARE(session.takeMessages(), strings({"display: api", "display: mel", "history: $b = 2;\n",
                                              "result: 2", "display: lowest"}));
}

void TestMessages::theApiShowsItsTextsUnchanged()
{
    TestSession session;
    MGlobal::displayInfo("i");
    MGlobal::displayWarning("w");
    QVERIFY(!session->errorSeen());
    MGlobal::displayError(MString("e\n\xe2\x82\xac"));
    QVERIFY(session->errorSeen());
    QCOMPARE(session.takeMessages(),
             strings({"info: i", "warning: w", QString::fromUtf8("error: e\n\xe2\x82\xac")}));
}

namespace {

void runCommand(const MString &text, MCommandMessage::MessageType, void *)
{
    if (text == "a")
        MGlobal::executeCommand("print \"nested\"; noSuchThing");
}

void printForEver(const MString &, MCommandMessage::MessageType, void *)
{
    MGlobal::executeCommand("print \"again\"; print \"and again\"");
}

void hideWarnings(const MString &, MCommandMessage::MessageType type, bool &hidden, void *)
{
    hidden = hidden || type == MCommandMessage::kWarning;
}

void escape(const MString &, MCommandMessage::MessageType, void *)
{
    throw std::runtime_error("lost");
}

} // namespace

void TestMessages::aCallbackMayRunCommands()
{
    TestSession session;
    const MCallbackId id = MCommandMessage::addCommandOutputCallback(runCommand);
    session.run("print \"a\"");
    MMessage::removeCallback(id);
    QCOMPARE(session.takeMessages(),
             strings({"display: a", "display: nested",
                      "error: line 1: Cannot find procedure \"noSuchThing\"."}));
}

void TestMessages::anEndlessCallbackIsReportedOnce()
{
    TestSession session;
    const MCallbackId id = MCommandMessage::addCommandOutputCallback(printForEver);
    for (int i = 0; i < 2; ++i) {
        session.run("print \"a\"");
        const QStringList messages = session.takeMessages();
        QCOMPARE(messages.filter("error: "),
                 QStringList() << "error: An output callback calls itself without end.");
        QVERIFY(messages.filter("again").size() > 20); // it does call itself
    }
    MMessage::removeCallback(id);
}

void TestMessages::whatACallbackPrintsFollowsItsMessage()
{
    TestSession session;
    QSignalSpy bare(&*session, SIGNAL(messageArrived(int, QString)));
    QSignalSpy shown(&*session, SIGNAL(historyGrew(QString)));
    const MCallbackId id = MCommandMessage::addCommandOutputCallback(runCommand);
    session.run("print \"a\"");
    MMessage::removeCallback(id);
    QCOMPARE(bare.at(0).at(1).toString(), QString("a"));
    QCOMPARE(bare.at(1).at(1).toString(), QString("nested"));
    QCOMPARE(shown.at(0).at(0).toString(), QString("a"));
}

void TestMessages::aFilterKeepsMessagesOutOfTheHistory()
{
    TestSession session;
    QSignalSpy shown(&*session, SIGNAL(historyGrew(QString)));
    const MCallbackId id = MCommandMessage::addCommandOutputFilterCallback(hideWarnings);
    MGlobal::displayWarning("hidden");
    MGlobal::displayInfo("shown");
    MMessage::removeCallback(id);
    MGlobal::displayWarning("late");
    QCOMPARE(session->history().text(), std::string("// shown // \n// Warning: late // \n"));
    QCOMPARE(shown.size(), 2);
    QCOMPARE(session.takeMessages(), strings({"warning: hidden", "info: shown", "warning: late"}));
}

void TestMessages::anEscapingExceptionIsReported()
{
    TestSession session;
    const MCallbackId id = MCommandMessage::addCommandOutputCallback(escape);
    QVERIFY(session.run("print \"a\""));
    MMessage::removeCallback(id);
    QCOMPARE(session.takeMessages(),
             strings({"display: a", "error: Exception in an output callback: lost"}));
}

void TestMessages::messagesOfOtherThreadsArriveOnTheMainThread()
{
    TestSession session;
    std::thread thread([&session] { session->output(mel::MessageKind::Display, "from afar"); });
    thread.join();
    QCOMPARE(session.takeMessages(), QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(session.takeMessages(), QStringList() << "display: from afar");
}

void TestMessages::listenersGetBareAndShownText()
{
    TestSession session;
    QSignalSpy bare(&*session, SIGNAL(messageArrived(int, QString)));
    QSignalSpy shown(&*session, SIGNAL(historyGrew(QString)));
    session->output(mel::MessageKind::Warning, "w");
    QCOMPARE(bare.size(), 1);
    QCOMPARE(bare.at(0).at(0).toInt(), static_cast<int>(mel::MessageKind::Warning));
    QCOMPARE(bare.at(0).at(1).toString(), QString("w"));
    QCOMPARE(shown.at(0).at(0).toString(), QString("// Warning: w // \n"));
}

CORVANE_TEST_MAIN(TestMessages)
#include "tst_messages.moc"
