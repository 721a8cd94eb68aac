// SPDX-License-Identifier: MIT
#include "tests/standin/host/testsession.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <maya/MCommandResult.h>
#include <maya/MCommonSystemUtils.h>
#include <maya/MDoubleArray.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MQtUtil.h>
#include <maya/MStringArray.h>

#include <QFileInfo>
#include <QSignalSpy>
namespace {

// Answers every text with one value, or fails.
class FixedPython : public standin::PythonEngine
{
public:
    explicit FixedPython(const mel::Outcome &outcome) : m_outcome(outcome) {}

    mel::Outcome execute(const std::string &, bool) override { return m_outcome; }
    void interrupt() override {}

private:
    mel::Outcome m_outcome;
};

} // namespace

class TestSessionCommands : public QObject
{
    Q_OBJECT

private slots:
    void resultsAreOfTheWantedType_data();
    void resultsAreOfTheWantedType();
    void aFailedResultLeavesTheVariableAlone();
    void anEmptyArraySuitsEveryArray();
    void stringResultsTakeNumbersToo();
    void commandResultsKnowTheirType();
    void aboutTellsOfTheSession();
    void foldersEndInASlashAndExist();
    void pythonValuesReachMel();
    void failingPythonStopsMel();
    void quitIsAnsweredWhenTheScriptIsDone();
    void withoutASessionTheApiFails();
    void environmentVariablesMayBeMissing();
};

void TestSessionCommands::resultsAreOfTheWantedType_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("types"); // that take the value
    row("int", "1+1", "int double");
    row("float", "1.5*1", "double");
    row("string", "$s = \"12\"", "string");
    row("ints", "$i = {1, 2}", "ints");
    row("floats", "$f = {1.5, 2.0}", "doubles");
    row("strings", "$t = {\"a\", \"\"}", "strings");
    row("no-value", "print \"\"", "");
    row("failing", "error \"x\"", "");
}

void TestSessionCommands::resultsAreOfTheWantedType()
{
    QFETCH(QString, text);
    QFETCH(QString, types);
    TestSession session;
    const MString command = MQtUtil::toMString(text);
    QStringList accepted;
    const auto tryType = [&](auto result, const char *name) {
        if (MGlobal::executeCommand(command, result, false, false))
            accepted << name;
    };
    tryType(0, "int");
    tryType(0.0, "double");
    tryType(MString(), "string");
    tryType(MIntArray(), "ints");
    tryType(MDoubleArray(), "doubles");
    tryType(MStringArray(), "strings");
    QCOMPARE(accepted.join(" "), types);
}

void TestSessionCommands::aFailedResultLeavesTheVariableAlone()
{
    TestSession session;
    int number = 42;
    QVERIFY(MGlobal::executeCommand("$s = \"7\"", number, false, false) == MS::kFailure);
    QCOMPARE(number, 42);
}

void TestSessionCommands::anEmptyArraySuitsEveryArray()
{
    TestSession session;
    MStringArray strings(2, "old");
    QVERIFY(MGlobal::executeCommand("int $none[]; $none = $none;", strings, false, false));
    QCOMPARE(strings.length(), 0u);
}

void TestSessionCommands::stringResultsTakeNumbersToo()
{
    TestSession session;
    MStatus status;
    QVERIFY(MGlobal::executeCommandStringResult("1+1", false, false, &status) == "2");
    QVERIFY(MGlobal::executeCommandStringResult("$s = \"t\"") == "t");
    QVERIFY(MGlobal::executeCommandStringResult("error \"x\"", false, false, &status) == "");
    QVERIFY(status.error());
}

void TestSessionCommands::commandResultsKnowTheirType()
{
    TestSession session;
    MCommandResult result;
    QVERIFY(MGlobal::executeCommand("$t = {\"a\"}", result, false, false));
    QCOMPARE(result.resultType(), MCommandResult::kStringArray);
    QVERIFY(MGlobal::executeCommand("<<1, 2, 3>>", result, false, false));
    QCOMPARE(result.resultType(), MCommandResult::kVector);
    QVERIFY(MGlobal::executeCommand("print \"\"", result, false, false));
    QCOMPARE(result.resultType(), MCommandResult::kInvalid);
}

void TestSessionCommands::aboutTellsOfTheSession()
{
    TestSession session;
    QCOMPARE(session.value("about -batch"), QString("0"));
    QCOMPARE(session.value("about -apiVersion"), QString::number(MGlobal::apiVersion()));
    QCOMPARE(session.value("about -v"), QString::number(MAYA_API_VERSION).left(4));
    QCOMPARE(session.value("about -win") + session.value("about -is64"),
             QString(sizeof(void *) == 8 ? "01" : "00"));
    QCOMPARE(session.value("about -a"), QString("maya"));
    QCOMPARE(session.value("about -uil"), QString("en_US"));
    QCOMPARE(session.value("size(`about -cd`) + size(`about -currentTime`)"), QString("18"));
    QVERIFY(!session.run("about"));
    QCOMPARE(MGlobal::mayaState(), MGlobal::kInteractive);

    standin::SessionOptions options;
    options.batch = true;
    session->quit();
    TestSession batch(options);
    QCOMPARE(batch.value("about -batch"), QString("1"));
    QCOMPARE(MGlobal::mayaState(), MGlobal::kBatch);
    QVERIFY(!MQtUtil::mainWindow());
}

void TestSessionCommands::foldersEndInASlashAndExist()
{
    TestSession session;
    const QString user = session.folder().path();
    QCOMPARE(session.value("internalVar -userScriptDir"), user + "/scripts/");
    QCOMPARE(session.value("internalVar -upd"), user + "/prefs/");
    QCOMPARE(session.value("internalVar -userAppDir"), user + "/");
    const char *const flags[] = {"userShelfDir", "userTmpDir", "userBitmapsDir", "userScriptDir"};
    for (const char *flag : flags) {
        const QString folder = session.value(QString("internalVar -") + flag);
        QVERIFY2(folder.endsWith('/') && QFileInfo(folder).isDir(), flag);
    }
}

void TestSessionCommands::pythonValuesReachMel()
{
    TestSession session;
    session->setPython(std::make_unique<FixedPython>(mel::Outcome{true, 41, {}}));
    QCOMPARE(session.value("int $n = python(\"41\"); $n + 1;"), QString("42"));
    int number = 0;
    QVERIFY(MGlobal::executePythonCommand("41", number, false, false));
    QCOMPARE(number, 41);
}

void TestSessionCommands::failingPythonStopsMel()
{
    TestSession session;
    session->setPython(std::make_unique<FixedPython>(mel::Outcome{false, {}, "bad"}));
    QVERIFY(!session.run("python(\"1/0\"); print \"not reached\""));
    QVERIFY(!session.takeMessages().contains("display: not reached"));
    QVERIFY(session.run("catchQuiet(python(\"1/0\"))"));
}

void TestSessionCommands::quitIsAnsweredWhenTheScriptIsDone()
{
    TestSession session;
    QSignalSpy asked(&*session, SIGNAL(quitRequested(int)));
    QVERIFY(session.run("quit -exitCode 3; print \"still here\""));
    QCOMPARE(asked.size(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.at(0).at(0).toInt(), 3);
}

void TestSessionCommands::withoutASessionTheApiFails()
{
    QVERIFY(MGlobal::executeCommand("print 1").error());
    QVERIFY(MGlobal::executeCommandOnIdle("print 1").error());
    QVERIFY(!MGlobal::optionVarExists("x"));
    MGlobal::displayInfo("nobody listens");
}

void TestSessionCommands::environmentVariablesMayBeMissing()
{
    MStatus status = MS::kFailure;
    QVERIFY(MCommonSystemUtils::getEnv("CORVANE_NOT_SET", &status) == "");
    QVERIFY(!status.error());
    QVERIFY(!MCommonSystemUtils::putEnv("CORVANE_SET", "1").error());
    MString value;
    MCommonSystemUtils::getEnv("CORVANE_SET", value);
    QVERIFY(value == "1");
}

CORVANE_TEST_MAIN(TestSessionCommands)
#include "tst_session.moc"
