// SPDX-License-Identifier: MIT
#include "bridge/flagtext.h"
#include "bridge/melcatalogue.h"
#include "bridge/melnametable.h"
#include "tests/standin/host/testsession.h"
#include "tests/support/datatable.h"
#include "tests/support/lineartime.h"
#include "tests/support/testmain.h"

#include <maya/MQtUtil.h>

#include <QStandardItemModel>

class TestMelCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void namesAreSortedByWhatTheyAre();
    void arraysKeepTheEmptyElements();
    void loadingAgainForgets();
    void flagsAreThoseOfCompiledCommands();
    void helpKnowsWhatCameLater();
    void newNamesAreAdded();
    void flagTextsAreSplitIntoThrees_data();
    void flagTextsAreSplitIntoThrees();
    void longFlagTextsAreSplitInLinearTime();
};

namespace {

bool holds(const MStringArray &names, const char *name)
{
    for (unsigned int i = 0; i < names.length(); ++i) {
        if (names[i] == MString(name))
            return true;
    }
    return false;
}

QStringList modelTexts()
{
    QStringList texts;
    for (int row = 0; row < melCommandModel().rowCount(); ++row)
        texts << melCommandModel().index(row, 0).data().toString();
    return texts;
}

} // namespace

void TestMelCatalogue::namesAreSortedByWhatTheyAre()
{
    TestSession session;
    session.run("global proc cvTestProcedure() {} runTimeCommand -c \"\" cvTestRuntime;");
    session.takeMessages();
    loadMelCatalogue();
    QVERIFY(session.takeMessages().isEmpty());
    QVERIFY(holds(melCommands(), "optionVar"));
    QVERIFY(!holds(melCommands(), "cvTestRuntime"));
    QVERIFY(holds(melRuntimeCommands(), "cvTestRuntime"));
    QVERIFY(!holds(melRuntimeCommands(), "optionVar"));
    QVERIFY(holds(melProcedures(), "cvTestProcedure"));
    QVERIFY(!holds(melProcedures(), "optionVar"));
    for (const char *name : {"optionVar", "cvTestRuntime", "cvTestProcedure"})
        QCOMPARE(melNameTable().value(name), QString(name));
    QVERIFY(modelTexts().contains("optionVar"));
    QVERIFY(modelTexts().indexOf("cvTestRuntime") > modelTexts().indexOf("optionVar"));
    QVERIFY(!modelTexts().contains("cvTestProcedure"));
    QVERIFY(isMelCommand("optionVar"));
    QVERIFY(!isMelCommand("optionvar") && !isMelCommand("cvTestRuntime"));
}

void TestMelCatalogue::arraysKeepTheEmptyElements()
{
    TestSession session;
    session.run("global proc aaaFirst() {}");
    loadMelCatalogue();
    QCOMPARE(MQtUtil::toQString(melProcedures()[0]), QString("aaaFirst"));
    QCOMPARE(MQtUtil::toQString(melCommands()[0]), QString());
    QVERIFY(melNameTable().contains(QString()));
    QCOMPARE(melCommandModel().rowCount(),
             int(melCommands().length() + melRuntimeCommands().length()));
}

void TestMelCatalogue::loadingAgainForgets()
{
    {
        TestSession session;
        session.run("runTimeCommand -c \"\" cvTestRuntime;");
        loadMelCatalogue();
    }
    TestSession session;
    loadMelCatalogue();
    QVERIFY(!melNameTable().contains("cvTestRuntime"));
    QVERIFY(!modelTexts().contains("cvTestRuntime"));
}

void TestMelCatalogue::flagsAreThoseOfCompiledCommands()
{
    TestSession session;
    session.run("global proc cvTestProcedure(int $i) {} runTimeCommand -c \"\" cvTestRuntime;");
    loadMelCatalogue();
    const QStringList flags = commandFlags("optionVar");
    QCOMPARE(int(flags.size()) % 3, 0);
    const int exists = int(flags.indexOf("-ex"));
    QVERIFY(exists >= 0 && exists % 3 == 0);
    QCOMPARE(flags.value(exists + 1), QString("-exists"));
    QCOMPARE(flags.value(exists + 2), QString("String"));
    for (const char *name : {"", "cvTestRuntime", "cvTestProcedure", "noSuchCommand", "OptionVar"})
        QVERIFY2(commandFlags(name).isEmpty(), name);
}

void TestMelCatalogue::helpKnowsWhatCameLater()
{
    TestSession session;
    session.run("runTimeCommand -c \"\" cvTestRuntime;");
    loadMelCatalogue();
    session.run("global proc cvTestProcedure() {} runTimeCommand -c \"\" cvLater;");
    session.takeMessages();
    QCOMPARE(melCommandHelp("cvTestRuntime").kind, CommandKind::RuntimeCommand);
    QCOMPARE(melCommandHelp("cvLater").kind, CommandKind::RuntimeCommand);
    QCOMPARE(melCommandHelp("cvTestProcedure").kind, CommandKind::Procedure);
    for (const char *name : {"", "noSuchCommand", "\"; error x; \""})
        QCOMPARE(melCommandHelp(name).kind, CommandKind::Unknown);
    const CommandHelp help = melCommandHelp("optionVar");
    QCOMPARE(help.kind, CommandKind::Command);
    QVERIFY(help.hasPage && !melCommandHelp("cvTestRuntime").hasPage);
    QVERIFY(!help.flags.isEmpty());
    for (const CommandFlag &flag : help.flags) {
        if (flag.shortName == "ex")
            QCOMPARE(flag.longName + " " + flag.argument, QString("exists String"));
    }
    QVERIFY(session.takeMessages().isEmpty());
}

void TestMelCatalogue::newNamesAreAdded()
{
    TestSession session;
    loadMelCatalogue();
    int version = melNames().version;
    addNewMelNames(); // there is none yet
    QCOMPARE(melNames().version, version);
    session.run("runTimeCommand -c \"\" cvGone");
    addNewMelNames();
    const size_t count = melNames().names.size();
    version = melNames().version;
    addNewMelNames();
    QCOMPARE(melNames().version, version);
    session.run("runTimeCommand -edit -delete cvGone; global proc cvLater() {}");
    session.takeMessages();
    addNewMelNames(); // as many as before
    QVERIFY(melNames().version != version);
    QCOMPARE(melNames().names.size(), count);
    QCOMPARE(melNames().names.back().name, QString("cvLater"));
    QVERIFY(!melNameTable().contains("cvLater"));
    QVERIFY(session.takeMessages().isEmpty());
}

void TestMelCatalogue::flagTextsAreSplitIntoThrees_data()
{
    columns<QString, QString>("text", "fields");
    row("two-lines", "Synopsis: x\nFlags:\n -q -query\n -a -all Int\n", "-q,-query,,-a,-all,Int");
    row("one-field", "S\nFlags:\r\n-q\r\n", "-q,,");
    row("four-fields", "S Flags:\t-a -all Int Int", "-a,-all,Int");
    row("blank-line", "S Flags:-a -b c\n  \n", "-a,-b,c,,,");
    row("no-section", "Synopsis: x", "");
    row("two-sections", "S Flags: -a Flags: -b", "");
    row("nothing-in-front", "Flags: -a", "");
    row("nothing-behind", "S Flags:", "");
    row("empty", "", "");
}

void TestMelCatalogue::flagTextsAreSplitIntoThrees()
{
    QFETCH(QString, text);
    QTEST(flagFields(text).join(","), "fields");
}

void TestMelCatalogue::longFlagTextsAreSplitInLinearTime()
{
    for (const char *pattern : {"-a%1 -b%1 c\n", "\n", "a ", "Flags:"})
        QCOMPARE(slowness("S Flags:" + longText(pattern), flagFields), QString());
}

CORVANE_TEST_MAIN(TestMelCatalogue)
#include "tst_melcatalogue.moc"
