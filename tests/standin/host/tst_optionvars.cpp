// SPDX-License-Identifier: MIT
#include "standin/host/optionvars.h"
#include "tests/support/datatable.h"
#include "tests/support/scratchdir.h"
#include "tests/standin/host/testsession.h"
#include "tests/support/testmain.h"

#include <maya/MGlobal.h>

#include <QFile>

Q_DECLARE_METATYPE(mel::Value)

using standin::OptionVars;

namespace {

bool areSame(const mel::Value &a, const mel::Value &b)
{
    return a.index() == b.index() && mel::printText(a) == mel::printText(b);
}

} // namespace

class TestOptionVars : public QObject
{
    Q_OBJECT

private slots:
    void valuesSurviveARestart_data();
    void valuesSurviveARestart();
    void theFileIsReadAndNeverRun();
    void damagedFilesAreReadAsFarAsTheyGo();
    void anElementOfAnotherTypeStartsTheArrayAnew();
    void theCommandSetsAndQueries_data();
    void theCommandSetsAndQueries();
    void theApiSharesTheVariables();
};

void TestOptionVars::valuesSurviveARestart_data()
{
    QTest::addColumn<mel::Value>("value");
    row("int", mel::Value(-5));
    row("float", mel::Value(0.1));
    row("float-without-fraction", mel::Value(3.0));
    row("huge-float", mel::Value(1e300));
    row("text", mel::Value(std::string("plain")));
    row("empty-text", mel::Value(std::string()));
    row("quoting", mel::Value(std::string("\"; print \"x\\\";\n\tC:\\dir\\")));
    row("not-ascii", mel::Value(std::string("\xe2\x82\xac\xf0\x9f\x98\x80")));
    row("ints", mel::Value(mel::IntArray{1, 2, 3}));
    row("floats", mel::Value(mel::FloatArray{0.5}));
    row("texts", mel::Value(mel::StringArray{"a b", "", "\""}));
}

void TestOptionVars::valuesSurviveARestart()
{
    QFETCH(mel::Value, value);
    const ScratchDir folder;
    const QString file = folder.file("userPrefs.mel");
    OptionVars written(file);
    written.set("a \"name\"", value);
    written.set("other", 1);
    QVERIFY(written.save());
    const OptionVars read(file);
    QVERIFY(areSame(read.value("a \"name\""), value));
    QVERIFY(areSame(read.value("other"), mel::Value(1)));
}

void TestOptionVars::theFileIsReadAndNeverRun()
{
    TestSession session;
    session->optionVars().set("kept", 1);
    session->optionVars().save();
    QFile file(session.folder().file("prefs/userPrefs.mel"));
    QVERIFY(file.open(QIODevice::Append));
    file.write("print \"executed\";\noptionVar -iv \"added\" 2;\n");
    file.close();
    session.restart();
    QCOMPARE(session.takeMessages(), QStringList());
    QCOMPARE(session.value("optionVar -q \"added\""), QString("2"));
}

void TestOptionVars::damagedFilesAreReadAsFarAsTheyGo()
{
    const ScratchDir folder;
    const OptionVars vars(folder.write(
        "p.mel", "optionVar -iv \"good\" 1;\noptionVar -iv;\noptionVar -sv \"cut\" \"text\\"));
    QVERIFY(areSame(vars.value("good"), mel::Value(1)));
}

void TestOptionVars::anElementOfAnotherTypeStartsTheArrayAnew()
{
    OptionVars vars{QString()};
    vars.set("x", 1);
    vars.append("x", 2);
    vars.append("x", 3);
    QVERIFY(areSame(vars.value("x"), mel::Value(mel::IntArray{2, 3})));
    vars.append("x", std::string("t"));
    QVERIFY(areSame(vars.value("x"), mel::Value(mel::StringArray{"t"})));
}

void TestOptionVars::theCommandSetsAndQueries_data()
{
    columns<QString, QString>("text", "expected");
    row("int", "optionVar -iv \"v\" 3; optionVar -q \"v\"", "3");
    row("long-names", "optionVar -stringValue \"v\" \"t\"; optionVar -query \"v\"", "t");
    row("several-at-once",
        "optionVar -iv \"v\" 3 -fv \"w\" 0.5; `optionVar -q \"v\"` + `optionVar -q \"w\"`;", "3.5");
    row("missing", "optionVar -q \"none\"", "0");
    row("exists", "optionVar -iv \"v\" 0; optionVar -exists \"v\"", "1");
    row("removed", "optionVar -iv \"v\" 1; optionVar -rm \"v\"; optionVar -ex \"v\"", "0");
    row("array", "optionVar -iva \"v\" 1 -iva \"v\" 2; optionVar -iva \"v\" 3; optionVar -q \"v\"",
        "1 2 3");
    row("array-size", "optionVar -sva \"v\" \"a\"; optionVar -arraySize \"v\"", "1");
    row("list", "optionVar -iv \"b\" 1 -iv \"a\" 1; optionVar -list", "a b");
}

void TestOptionVars::theCommandSetsAndQueries()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    TestSession session;
    QCOMPARE(session.value(text), expected);
    QCOMPARE(session.takeMessages(), QStringList());
}

void TestOptionVars::theApiSharesTheVariables()
{
    TestSession session;
    QVERIFY(session.run("optionVar -iv \"echoAllLines\" 1"));
    bool valid = false;
    QCOMPARE(MGlobal::optionVarIntValue("echoAllLines", &valid), 1);
    QVERIFY(valid);
    QCOMPARE(MGlobal::optionVarIntValue("none", &valid), 0);
    QVERIFY(!valid);
    QVERIFY(MGlobal::setOptionVarValue("fromApi", MString("text")));
    QVERIFY(!MGlobal::initOptionVar("fromApi", 5));
    QCOMPARE(session.value("optionVar -q \"fromApi\""), QString("text"));
    QVERIFY(MGlobal::removeOptionVar("fromApi"));
    QVERIFY(!MGlobal::removeOptionVar("fromApi"));
}

CORVANE_TEST_MAIN(TestOptionVars)
#include "tst_optionvars.moc"
