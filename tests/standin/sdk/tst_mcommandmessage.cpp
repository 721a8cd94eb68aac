// SPDX-License-Identifier: MIT
#include "standin/sdk/hostaccess.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MCommandMessage.h>
#include <maya/MQtUtil.h>

#include <QStringList>

#include <stdexcept>

using standin::dispatchOutput;

namespace {

QStringList received;
MCallbackId other = 0;

void note(const MString &text, MCommandMessage::MessageType, void *name)
{
    received << QString(static_cast<const char *>(name)) + MQtUtil::toQString(text);
}

void removeOther(const MString &, MCommandMessage::MessageType, void *)
{
    MMessage::removeCallback(other);
}

void removeItself(const MString &, MCommandMessage::MessageType, void *)
{
    MMessage::removeCallback(MMessage::currentCallbackId());
    received << "once";
}

void addAnother(const MString &, MCommandMessage::MessageType, void *ids)
{
    const MCallbackId id =
        MCommandMessage::addCommandOutputCallback(note, const_cast<char *>("new "));
    static_cast<MCallbackIdArray *>(ids)->append(id);
}

// Answers each text with a longer one.
void printLonger(const MString &text, MCommandMessage::MessageType, void *)
{
    received << "printer " + MQtUtil::toQString(text);
    if (text.length() < 3)
        dispatchOutput(mel::MessageKind::Display, (text + "a").asUTF8());
}

void throwAlways(const MString &, MCommandMessage::MessageType, void *)
{
    throw std::runtime_error("no");
}

void say(const char *text)
{
    dispatchOutput(mel::MessageKind::Display, text);
}

} // namespace

class TestMCommandMessage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void callbacksRunInTheOrderTheyWereAdded();
    void aCallbackMayRemoveTheNextOne();
    void aCallbackMayRemoveItself();
    void anAddedCallbackStartsWithTheNextMessage();
    void aPrintingCallbackHearsItself();
    void anExceptionLeavesTheOtherCallbacksAlone();
    void anUnknownIdIsRefused();

private:
    MCallbackId add(MCommandMessage::MMessageFunction function, void *data = nullptr);

    MCallbackIdArray m_ids;
};

MCallbackId TestMCommandMessage::add(MCommandMessage::MMessageFunction function, void *data)
{
    m_ids.append(MCommandMessage::addCommandOutputCallback(function, data));
    return m_ids[m_ids.length() - 1];
}

void TestMCommandMessage::init()
{
    received.clear();
}

void TestMCommandMessage::cleanup()
{
    MMessage::removeCallbacks(m_ids);
    m_ids.clear();
    QVERIFY(standin::liveCallbacks().empty());
}

void TestMCommandMessage::callbacksRunInTheOrderTheyWereAdded()
{
    add(note, const_cast<char *>("first "));
    add(note, const_cast<char *>("second "));
    say("a");
    say("b");
    QCOMPARE(received, strings({"first a", "second a", "first b", "second b"}));
}

void TestMCommandMessage::aCallbackMayRemoveTheNextOne()
{
    add(removeOther);
    other = add(note, const_cast<char *>("gone "));
    add(note, const_cast<char *>("stays "));
    say("a");
    QCOMPARE(received, QStringList() << "stays a");
}

void TestMCommandMessage::aCallbackMayRemoveItself()
{
    add(removeItself);
    say("a");
    say("b");
    QCOMPARE(received, QStringList() << "once");
}

void TestMCommandMessage::anAddedCallbackStartsWithTheNextMessage()
{
    const MCallbackId adder = add(addAnother, &m_ids);
    say("a");
    MMessage::removeCallback(adder);
    say("b");
    QCOMPARE(received, QStringList() << "new b");
}

void TestMCommandMessage::aPrintingCallbackHearsItself()
{
    add(printLonger);
    add(note, const_cast<char *>("listener "));
    say("a");
    QCOMPARE(received, strings({"printer a", "printer aa", "printer aaa", "listener aaa",
                                "listener aa", "listener a"}));
}

void TestMCommandMessage::anExceptionLeavesTheOtherCallbacksAlone()
{
    add(throwAlways);
    add(note, const_cast<char *>("other "));
    say("a");
    QCOMPARE(received, QStringList() << "other a");
    MStatus status;
    QCOMPARE(MMessage::currentCallbackId(&status), MCallbackId(0));
    QVERIFY(status.error());
}

void TestMCommandMessage::anUnknownIdIsRefused()
{
    const MCallbackId id = add(note, const_cast<char *>(""));
    QVERIFY(!MMessage::removeCallback(id).error());
    QVERIFY(MMessage::removeCallback(id).error());
    QVERIFY(MMessage::removeCallbacks(m_ids).error());
}

CORVANE_TEST_MAIN(TestMCommandMessage)
#include "tst_mcommandmessage.moc"
