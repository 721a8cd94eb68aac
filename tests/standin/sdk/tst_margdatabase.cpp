// SPDX-License-Identifier: MIT
#include "tests/support/testmain.h"

#include <maya/MArgDatabase.h>
#include <maya/MQtUtil.h>
#include <maya/MStringArray.h>

#include <QStringList>

#include <memory>

namespace {

MSyntax newSyntax()
{
    MSyntax syntax;
    syntax.addFlag("-ws", "-writeSettings");
    syntax.addFlag("c", "count", MSyntax::kLong); // the dash may be left out
    syntax.addFlag("-p", "-place", MSyntax::kDouble, MSyntax::kDouble);
    syntax.addFlag("-n", "-name", MSyntax::kString);
    syntax.addFlag("-t", "-title", MSyntax::kString);
    syntax.makeFlagMultiUse("-name");
    syntax.makeFlagQueryWithFullArgs("-title", true);
    syntax.setObjectType(MSyntax::kStringObjects, 0, 2);
    syntax.enableQuery();
    return syntax;
}

// The words of a command line; one holding "''" is an empty word.
MArgList wordsOf(const QString &line)
{
    MArgList words;
    const QStringList parts = line.split(' ');
    for (const QString &part : parts) {
        if (!part.isEmpty())
            words.addArg(MQtUtil::toMString(part == "''" ? QString() : part));
    }
    return words;
}

} // namespace

class TestMArgDatabase : public QObject
{
    Q_OBJECT

private slots:
    void wordsFitTheSyntax_data();
    void wordsFitTheSyntax();
    void flagsAreFoundByEitherName();
    void argumentsAreConverted();
    void multiUseFlagsKeepEveryUse();
    void queriedFlagsTakeTheArgumentsTheyMay_data();
    void queriedFlagsTakeTheArgumentsTheyMay();
    void declaredArgumentsComeBeforeObjects();
    void badNamesAreRefusedBySyntax();
    void copiesOfASyntaxAreIndependent();
};

void TestMArgDatabase::wordsFitTheSyntax_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("fits");
    QTest::newRow("no-words") << "" << true;
    QTest::newRow("known-flag") << "-ws" << true;
    QTest::newRow("unknown-flag") << "-nope" << false;
    QTest::newRow("unknown-flag-after-a-known-one") << "-ws -x 1" << false;
    QTest::newRow("negative-number-is-no-flag") << "-c -3" << true;
    QTest::newRow("argument-missing") << "-place 1" << false;
    QTest::newRow("argument-of-the-wrong-type") << "-count three" << false;
    QTest::newRow("empty-argument") << "-name ''" << true;
    QTest::newRow("two-objects") << "a b" << true;
    QTest::newRow("too-many-objects") << "a b c" << false;
    QTest::newRow("edit-is-not-enabled") << "-e -c 1" << false;
}

void TestMArgDatabase::wordsFitTheSyntax()
{
    QFETCH(QString, line);
    QFETCH(bool, fits);
    MStatus status;
    const MArgDatabase words(newSyntax(), wordsOf(line), &status);
    QCOMPARE(status == MS::kSuccess, fits);
}

void TestMArgDatabase::flagsAreFoundByEitherName()
{
    const MArgDatabase words(newSyntax(), wordsOf("-writeSettings -c 1"));
    MStatus status;
    QVERIFY(words.isFlagSet("-ws", &status));
    QVERIFY(words.isFlagSet("-count"));
    QVERIFY(!words.isFlagSet("-name"));
    QCOMPARE(words.numberOfFlagsUsed(), 2u);
    QVERIFY(!words.isFlagSet("-unheardOf", &status));
    QVERIFY(status.error());
}

void TestMArgDatabase::argumentsAreConverted()
{
    const MArgDatabase words(newSyntax(), wordsOf("-p 1.5 -2 -c 7"));
    QCOMPARE(words.flagArgumentDouble("-place", 0), 1.5);
    QCOMPARE(words.flagArgumentInt("-place", 1), -2);
    MString text;
    QVERIFY(!words.getFlagArgument("-c", 0, text).error());
    QVERIFY(text == "7");
    int number = 42;
    QVERIFY(words.getFlagArgument("-c", 1, number).error());
    QVERIFY(words.getFlagArgument("-n", 0, number).error());
    QCOMPARE(number, 42);
}

void TestMArgDatabase::multiUseFlagsKeepEveryUse()
{
    const MArgDatabase words(newSyntax(), wordsOf("-n one -name two"));
    QCOMPARE(words.numberOfFlagUses("-n"), 2u);
    QCOMPARE(words.numberOfFlagsUsed(), 1u);
    MArgList first;
    QVERIFY(!words.getFlagArgumentList("-n", 0, first).error());
    QVERIFY(first.asString(0) == "one");
    QVERIFY(words.flagArgumentString("-n", 0) == "two");
}

void TestMArgDatabase::queriedFlagsTakeTheArgumentsTheyMay_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("arguments"); // of -title
    QTest::addColumn<QString>("object");
    QTest::newRow("mode-first") << "-q -count ball" << -1 << "ball";
    QTest::newRow("mode-last") << "-count ball -q" << -1 << "ball";
    QTest::newRow("optional-and-given") << "-q -title x ball" << 1 << "ball";
    QTest::newRow("optional-before-a-flag") << "-q -title -count ball" << 0 << "ball";
    QTest::newRow("optional-at-the-end") << "ball -q -title" << 0 << "ball";
    QTest::newRow("optional-and-empty") << "-q -title '' ball" << 1 << "ball";
}

void TestMArgDatabase::queriedFlagsTakeTheArgumentsTheyMay()
{
    QFETCH(QString, line);
    QFETCH(int, arguments);
    QFETCH(QString, object);
    MStatus status;
    const MArgDatabase words(newSyntax(), wordsOf(line), &status);
    QVERIFY(!status.error());
    QVERIFY(words.isQuery());
    MArgList taken;
    const bool isSet = !words.getFlagArgumentList("-t", 0, taken).error();
    QCOMPARE(isSet ? int(taken.length()) : -1, arguments);
    MStringArray objects;
    words.getObjects(objects);
    QCOMPARE(objects.length(), 1u);
    QCOMPARE(MQtUtil::toQString(objects[0]), object);
}

void TestMArgDatabase::declaredArgumentsComeBeforeObjects()
{
    MSyntax syntax;
    syntax.addArg(MSyntax::kLong);
    MStatus status;
    const MArgDatabase words(syntax, wordsOf("12"), &status);
    QVERIFY(!status.error());
    QCOMPARE(words.commandArgumentInt(0), 12);
    MArgDatabase(syntax, wordsOf("twelve"), &status);
    QVERIFY(status.error());
    MArgDatabase(syntax, wordsOf(""), &status);
    QVERIFY(status.error());
}

void TestMArgDatabase::badNamesAreRefusedBySyntax()
{
    MSyntax syntax;
    QVERIFY(syntax.addFlag("-long", "-longer").error());
    QVERIFY(syntax.addFlag("-s", "-sho").error());
    QVERIFY(!syntax.addFlag("-s", "-shot").error());
    QVERIFY(syntax.addFlag("-s", "-other").error());
    QVERIFY(syntax.makeFlagMultiUse("-unknown").error());
}

void TestMArgDatabase::copiesOfASyntaxAreIndependent()
{
    const MSyntax original = newSyntax();
    MSyntax copy = original;
    copy.addFlag("-x", "-extra");
    MStatus status;
    MArgDatabase(original, wordsOf("-extra"), &status);
    QVERIFY(status.error());
    MArgDatabase(copy, wordsOf("-extra"), &status);
    QVERIFY(!status.error());
}

CORVANE_TEST_MAIN(TestMArgDatabase)
#include "tst_margdatabase.moc"
