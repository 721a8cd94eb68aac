// SPDX-License-Identifier: MIT
#include "tests/support/datatable.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"

#include <QImage>
#include <QProcess>
namespace {

struct Run
{
    int status = -1; // -1: did not end by itself
    QStringList lines;
    QString complaints;
};

const int longestRun = 60000; // milliseconds

Run finished(QProcess &process)
{
    Run run;
    if (process.waitForFinished(longestRun) && process.exitStatus() == QProcess::NormalExit)
        run.status = process.exitCode();
    run.lines = QString::fromUtf8(process.readAllStandardOutput()).split('\n');
    run.lines.removeLast();
    run.complaints = QString::fromUtf8(process.readAllStandardError());
    return run;
}

} // namespace

// The program as a user starts it.
class TestProgram : public QObject
{
    Q_OBJECT

private slots:
    void theStatusTellsOfErrors_data();
    void theStatusTellsOfErrors();
    void optionsRunInTheirOrder();
    void deferredWorkRunsBeforeTheNextOption();
    void lineBreaksAreWrittenOut();
    void filesAreRun();
    void userSetupRunsFirst();
    void optionsOfQtAreNotTaken();
    void theDefaultPlugInCanBeLoadedAgain();
    void theEditorSurvivesTheEnd_data();
    void theEditorSurvivesTheEnd();
    void theEditorRunsWithoutMayaLocation();
    void batchSessionsNeedNoDisplay();
    void optionVariablesSurvive();
    void quitJobsRunBeforeTheEnd();
    void picturesAreSaved();
    void nobodyHasToAnswerDialogs();
    void badCommandLinesShowTheUsage();
    void missingFilesAreErrors();
    void terminationStopsARunningScript();

private:
    QStringList complete(const QStringList &options) const;
    Run run(const QStringList &options) const;
    // With the default plug-in, and every message in the lines.
    Run runWithEditor(
        const QStringList &options,
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment()) const;

    ScratchDir m_user;
};

QStringList TestProgram::complete(const QStringList &options) const
{
    return strings({"--no-plugin", "--user-dir", m_user.path()}) + options;
}

Run TestProgram::run(const QStringList &options) const
{
    QProcess process;
    process.start(STANDIN_PROGRAM, complete(options));
    return finished(process);
}

Run TestProgram::runWithEditor(const QStringList &options,
                               const QProcessEnvironment &environment) const
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(STANDIN_PROGRAM, strings({"--log", "--user-dir", m_user.path()}) + options);
    return finished(process);
}

void TestProgram::theStatusTellsOfErrors_data()
{
    columns<QString, int>("mel", "status");
    row("fine", "print 1", 0);
    row("warning", "warning \"w\"", 0);
    row("error", "error \"e\"", 1);
    row("syntax-error", "{", 1);
    row("caught-error", "catch(`error \"e\"`)", 1);
    row("chosen-by-the-script", "quit -exitCode 7", 7);
    row("quit-by-the-script", "quit", 0);
}

void TestProgram::theStatusTellsOfErrors()
{
    QFETCH(QString, mel);
    QFETCH(int, status);
    const Run made = run(QStringList() << "--mel" << mel << "--quit");
    QCOMPARE(made.status, status);
    QCOMPARE(made.lines, QStringList());
}

void TestProgram::optionsRunInTheirOrder()
{
    const Run made = run(strings({"--mel", "1+1", "--mel", "print \"b\"", "--log", "--mel",
                                  "warning \"c\"", "--quit", "--mel", "print \"never\""}));
    QCOMPARE(made.lines,
             strings({"history\t1+1\\n", "result\t2", "history\tprint \"b\"\\n", "display\tb",
                      "history\twarning \"c\"\\n", "warning\tline 1: c"}));
}

void TestProgram::deferredWorkRunsBeforeTheNextOption()
{
    const Run made =
        run(strings({"--log", "--mel", "evalDeferred \"print 1; evalDeferred \\\"print 2\\\"\"",
                     "--mel", "print 3", "--quit"}));
    QCOMPARE(made.lines.filter("display"), strings({"display\t1", "display\t2", "display\t3"}));
}

void TestProgram::lineBreaksAreWrittenOut()
{
    const Run made = run(strings({"--log", "--mel", "print \"a\\n\\tb\\n\";", "--quit"}));
    QCOMPARE(made.lines.filter("display"), QStringList() << "display\ta\\n\tb\\n");
}

void TestProgram::filesAreRun()
{
    const QString file = m_user.write("script.mel", "int $a = 4;\nprint ($a + 1);\n");
    const Run made = run(strings({"--log", "--mel-file", file, "--quit"}));
    QCOMPARE(made.lines.filter("display"), QStringList() << "display\t5");
    QCOMPARE(made.status, 0);
}

void TestProgram::userSetupRunsFirst()
{
    const QString file = m_user.write("scripts/userSetup.mel",
                                      "global string $gMainWindowMenu;\n"
                                      "global int $fromSetup = 8; print(size($gMainWindowMenu));"
                                      "evalDeferred(\"print $gMainWindowMenu\");");
    const Run made =
        run(strings({"--log", "--mel", "global int $fromSetup; print $fromSetup;", "--quit"}));
    QFile::remove(file);
    QCOMPARE(made.lines.filter("display"),
             strings({"display\t0", "display\tmainWindowMenu", "display\t8"}));
    QCOMPARE(made.lines.filter("history").size(), 1);
}

void TestProgram::optionsOfQtAreNotTaken()
{
    const Run made = run(strings(
        {"--plugin", TEST_PLUGIN_FOLDER "/good.so", "--log", "--mel", "testCommand", "--quit"}));
    QVERIFY(made.lines.contains("result\t0::"));
    QVERIFY2(!made.complaints.contains("plugin for spec"), qPrintable(made.complaints));
}

void TestProgram::theDefaultPlugInCanBeLoadedAgain()
{
    const Run made = runWithEditor(strings({"--mel", "unloadPlugin corvaneEditor;", "--mel",
                                            "loadPlugin corvaneEditor; corvaneEditor;", "--quit"}));
    QCOMPARE(made.lines.filter("error"), QStringList());
    QCOMPARE(made.status, 0);
}

void TestProgram::theEditorSurvivesTheEnd_data()
{
    QTest::addColumn<QString>("option");
    row("unloaded", "--log");
    row("still-loaded", "--keep-plugins");
}

void TestProgram::theEditorSurvivesTheEnd()
{
    QFETCH(QString, option);
    const QString settings = m_user.file("prefs/corvaneEditor.ini");
    QFile::remove(settings);
    const QString file = m_user.write("script.mel", "print 5;\n");
    const Run made =
        runWithEditor(strings({option, "--open", file, "--execute", "--print-output", "--quit"}));
    QCOMPARE(made.status, 0);
    QVERIFY(made.lines.join("\n").contains("print 5;"));
    QVERIFY(QFile::exists(settings)); // the quit job has run
}

// Whoever asks for the icon folder is told that there is none; nothing else suffers.
void TestProgram::theEditorRunsWithoutMayaLocation()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("MAYA_LOCATION", "");
    const Run made = runWithEditor(
        strings({"--mel", "corvaneEditor; getenv MAYA_LOCATION", "--quit"}), environment);
    QVERIFY(made.lines.contains("result\t"));
    QCOMPARE(made.lines.filter("error"), QStringList() << "error\tFailed to get icon path");
    QCOMPARE(made.status, 1);
}

void TestProgram::batchSessionsNeedNoDisplay()
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    environment.insert("QT_QPA_PLATFORM", "no-such-platform");
    process.setProcessEnvironment(environment);
    process.start(STANDIN_PROGRAM, complete(strings({"--batch", "--log", "--mel", "about -batch",
                                                     "--mel", "window w"})));
    const Run made = finished(process);
    QCOMPARE(made.status, 1);
    QVERIFY(made.lines.contains("result\t1"));
    QVERIFY(made.lines.contains("error\tline 1: Cannot find procedure \"window\"."));
}

void TestProgram::optionVariablesSurvive()
{
    run(strings({"--mel", "optionVar -iv kept 12", "--quit"}));
    const Run made = run(strings({"--log", "--mel", "optionVar -q kept", "--quit"}));
    QVERIFY2(made.lines.contains("result\t12"), qPrintable(made.lines.join("\n")));
}

void TestProgram::quitJobsRunBeforeTheEnd()
{
    const Run made = run(
        strings({"--log", "--mel", "scriptJob -event quitApplication \"print bye\";", "--quit"}));
    QCOMPARE(made.lines.last(), QString("display\tbye"));
}

void TestProgram::picturesAreSaved()
{
    const QString file = m_user.file("main.png");
    const Run made = run(QStringList() << "--screenshot-main" << file << "--quit");
    QCOMPARE(made.status, 0);
    QVERIFY(QImage(file).width() > 600);
    QCOMPARE(run(words("--screenshot /no/such/folder/a.png --quit")).status, 1);
}

void TestProgram::nobodyHasToAnswerDialogs()
{
    const Run made =
        run(strings({"--log", "--mel", "confirmDialog -message \"sure?\" -button yes", "--quit"}));
    QCOMPARE(made.lines.last(), QString("result\tdismiss"));
}

void TestProgram::badCommandLinesShowTheUsage()
{
    const Run made = run(strings({"--mle", "print 1"}));
    QCOMPARE(made.status, 2);
    QVERIFY(made.complaints.contains("--mle"));
    QVERIFY(made.complaints.contains("Usage:"));
    QVERIFY(made.lines.isEmpty());
    QCOMPARE(run(QStringList() << "--help").status, 0);
}

void TestProgram::missingFilesAreErrors()
{
    const Run made = run(words("--log --mel-file /no/such.mel --open /no/such.py --quit"));
    QCOMPARE(made.status, 1);
    QCOMPARE(made.lines, strings({"error\tCannot read file \"/no/such.mel\".",
                                  "error\tCannot open file \"/no/such.py\"."}));
}

void TestProgram::terminationStopsARunningScript()
{
    QProcess process;
    process.start(STANDIN_PROGRAM,
                  complete(strings({"--log", "--mel", "print \"on\"; while (1) ;"})));
    QByteArray text;
    while (!text.contains("display\ton") && process.waitForReadyRead(longestRun))
        text += process.readAllStandardOutput();
    QVERIFY(text.contains("display\ton"));
    process.terminate();
    QVERIFY(process.waitForFinished(longestRun));
    QCOMPARE(int(process.exitStatus()), int(QProcess::NormalExit));
    QCOMPARE(process.exitCode(), 1); // the interrupted script is an error
}

CORVANE_TEST_MAIN(TestProgram)
#include "tst_program.moc"
