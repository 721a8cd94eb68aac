// SPDX-License-Identifier: MIT
#include "standin/program/options.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

using standin::ProgramOptions;
using standin::StepKind;

class TestOptions : public QObject
{
    Q_OBJECT

private slots:
    void stepsKeepTheirOrder();
    void settingsCountWhereverTheyStand();
    void badCommandLinesAreRefused_data();
    void badCommandLinesAreRefused();
    void aStepMayLookLikeAnOption();
};

void TestOptions::stepsKeepTheirOrder()
{
    const ProgramOptions options = standin::readOptions(words("--python b --mel a --mel c --quit"));
    QVERIFY(options.error.isEmpty());
    QCOMPARE(int(options.steps.size()), 4);
    QVERIFY(options.steps[0].kind == StepKind::Python);
    QCOMPARE(options.steps[0].argument, QString("b"));
    QCOMPARE(options.steps[2].argument, QString("c"));
    QVERIFY(options.steps[3].kind == StepKind::Quit);
    QVERIFY(options.quits());
}

void TestOptions::settingsCountWhereverTheyStand()
{
    const ProgramOptions options =
        standin::readOptions(words("--mel a --log --plugin p --plugin q --no-plugin --keep-plugins "
                                   "--messages from-2023 --user-dir /u"));
    QVERIFY(options.error.isEmpty());
    QVERIFY(options.log);
    QVERIFY(!options.closingMarks);
    QVERIFY(!options.loadsDefaultPlugin);
    QVERIFY(!options.unloadsAtQuit);
    QVERIFY(!options.quits());
    QCOMPARE(options.plugins.join(","), QString("p,q"));
    QCOMPARE(options.userDirectory, QString("/u"));
}

void TestOptions::badCommandLinesAreRefused_data()
{
    columns<QString, QString>("arguments", "named");
    row("unknown-option", "--quit --fast", "--fast");
    row("stray-word", "file.mel", "file.mel");
    row("missing-argument", "--log --mel", "--mel");
    row("unknown-message-form", "--messages old", "old");
    row("picture-of-no-window", "--batch --screenshot a.png", "--batch");
}

void TestOptions::badCommandLinesAreRefused()
{
    QFETCH(QString, arguments);
    QFETCH(QString, named);
    const ProgramOptions options = standin::readOptions(arguments.split(' '));
    QVERIFY2(options.error.contains(named), qPrintable(options.error));
}

void TestOptions::aStepMayLookLikeAnOption()
{
    const ProgramOptions options = standin::readOptions(words("--mel --quit"));
    QVERIFY(options.error.isEmpty());
    QVERIFY(!options.quits());
    QCOMPARE(options.steps[0].argument, QString("--quit"));
}

CORVANE_TEST_MAIN(TestOptions)
#include "tst_options.moc"
