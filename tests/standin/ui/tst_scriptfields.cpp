// SPDX-License-Identifier: MIT
#include "standin/host/idlequeue.h"
#include "standin/ui/executerfield.h"
#include "standin/ui/reporterfield.h"
#include "tests/standin/ui/uisession.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QTest>

using standin::ExecuterField;
using standin::ReporterField;

class TestScriptFields : public QObject
{
    Q_OBJECT

private slots:
    void aNewReporterShowsWhatCameBefore();
    void reportersFollowTheSession();
    void reportersCanKeepToOneLanguage();
    void clearingOneReporterLeavesTheHistory();
    void switchesBelongToTheSession();
    void selectedTextIsCopied();
    void executersRunTheirText_data();
    void executersRunTheirText();
    void theScriptEditorOpensOnce();
};

void TestScriptFields::aNewReporterShowsWhatCameBefore()
{
    UiSession session;
    session.session().run("print \"early\\n\";");
    QCOMPARE(session.answer("window w; columnLayout; cmdScrollFieldReporter r; "
                            "cmdScrollFieldReporter -q -text r;"),
             QString("early\n"));
}

void TestScriptFields::reportersFollowTheSession()
{
    UiSession session;
    session.session().run("window w; columnLayout; cmdScrollFieldReporter r;");
    session.session()->executeMel("1 + 1", true);
    QCOMPARE(session.object<ReporterField>("r")->toPlainText(),
             QString("1 + 1\n// Result: 2 // \n"));
}

void TestScriptFields::reportersCanKeepToOneLanguage()
{
    UiSession session;
    session.session().run("print \"mel\\n\";");
    session.session()->history().setLanguage(standin::Language::Python);
    session.session()->output(mel::MessageKind::Display, "python\n");
    session.session().run("window w; columnLayout; cmdScrollFieldReporter -fst python r; "
                          "print \"more mel\\n\";");
    ReporterField *reporter = session.object<ReporterField>("r");
    QCOMPARE(reporter->toPlainText(), QString("python\n"));
    session.session().run("cmdScrollFieldReporter -e -fst mel r;");
    QCOMPARE(reporter->toPlainText(), QString("mel\nmore mel\n"));
    session.session().run("scriptEditorInfo -clearHistory; cmdScrollFieldReporter -e -fst \"\" r;");
    QCOMPARE(reporter->toPlainText(), QString());
}

void TestScriptFields::clearingOneReporterLeavesTheHistory()
{
    UiSession session;
    session.session().run("print \"kept\\n\"; window w; columnLayout; cmdScrollFieldReporter r; "
                          "cmdScrollFieldReporter -e -clear r;");
    QCOMPARE(session.answer("cmdScrollFieldReporter -q -textLength r;"), QString("0"));
    QCOMPARE(session.answer("cmdScrollFieldReporter s; cmdScrollFieldReporter -q -t s;"),
             QString("kept\n"));
}

void TestScriptFields::switchesBelongToTheSession()
{
    UiSession session;
    session.session().run("window w; columnLayout; cmdScrollFieldReporter r; "
                          "cmdScrollFieldReporter -e -echoAllCommands 0 -lineNumbers 0 "
                          "-suppressInfo 1 r;");
    QCOMPARE(session.answer("cmdScrollFieldReporter s; cmdScrollFieldReporter -q -ln s;"),
             QString("0"));
    QCOMPARE(session.answer("commandEcho -q -lineNumbers"), QString("0"));
    QCOMPARE(session.answer("scriptEditorInfo -q -suppressInfo"), QString("1"));
}

void TestScriptFields::selectedTextIsCopied()
{
    UiSession session;
    session.session().run("window w; columnLayout; cmdScrollFieldExecuter -text \"abcdef\" e; "
                          "cmdScrollFieldExecuter -e -select 1 3 e; "
                          "cmdScrollFieldExecuter -e -cutSelection e;");
    QCOMPARE(session.answer("cmdScrollFieldExecuter -q -t e"), QString("aef"));
    session.session().run("cmdScrollFieldExecuter -e -select 5 99 e; "
                          "cmdScrollFieldExecuter -e -pasteSelection e;");
    QCOMPARE(session.answer("cmdScrollFieldExecuter -q -t e"), QString("aefbcd"));
}

void TestScriptFields::executersRunTheirText_data()
{
    columns<int, bool, QString>("key", "control", "left");
    row("control-return", int(Qt::Key_Return), true, "");
    row("keypad", int(Qt::Key_Enter), false, "");
    row("plain-return", int(Qt::Key_Return), false, "\nprint 7");
}

void TestScriptFields::executersRunTheirText()
{
    QFETCH(int, key);
    QFETCH(bool, control);
    QFETCH(QString, left);
    UiSession session;
    session.session().run("window w; columnLayout; cmdScrollFieldExecuter -t \"print 7\" e;");
    ExecuterField *field = session.object<ExecuterField>("e");
    QTest::keyClick(field, static_cast<Qt::Key>(key),
                    control ? Qt::ControlModifier : Qt::NoModifier);
    session.session()->idleQueue().processUntilEmpty();
    QCOMPARE(field->toPlainText(), left);
    const QStringList ran = strings({"history: print 7\n", "display: 7"});
    QCOMPARE(session.session().takeMessages(), left.isEmpty() ? ran : QStringList());
}

void TestScriptFields::theScriptEditorOpensOnce()
{
    UiSession session;
    session.session().run("ScriptEditor; ScriptEditor;");
    int count = 0;
    for (const QWidget *widget : QApplication::topLevelWidgets())
        count += widget->windowTitle() == "Script Editor" ? 1 : 0;
    QCOMPARE(count, 1);
}

CORVANE_TEST_MAIN(TestScriptFields)
#include "tst_scriptfields.moc"
