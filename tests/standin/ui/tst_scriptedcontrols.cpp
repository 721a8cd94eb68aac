// SPDX-License-Identifier: MIT
#include "standin/host/scriptjobs.h"
#include "tests/standin/ui/uisession.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
class TestScriptedControls : public QObject
{
    Q_OBJECT

private slots:
    void scriptsOfControlsRun_data();
    void scriptsOfControlsRun();
    void failingScriptsAreReported();
    void aControlMayDeleteItself();
    void aMenuMayEmptyItself();
    void fieldsRunTheirScriptsOnReturn();
    void submenusAreFilledWhenShown();
    void closingAWindowEndsItsElements();
    void jobsDieWithTheirWindow();
    void elementsFollowTheirWidgets();
};

void TestScriptedControls::scriptsOfControlsRun_data()
{
    columns<QString, QString>("control", "printed");
    row("button", "button -c \"print 1\" x", "1");
    row("symbol-button", "symbolButton -c \"print 2\" x", "2");
    row("icon-text-button", "iconTextButton -c \"print 3\" x", "3");
    row("check-box", "checkBox -cc \"print #1\" x", "1");
    row("check-box-going-on", "checkBox -onc \"print on\" -ofc \"print off\" x", "on");
    row("check-box-going-off", "checkBox -v on -onc \"print on\" -ofc \"print off\" x", "off");
    row("edited-later", "button -c \"print 1\" x; button -e -c \"print 4\" x", "4");
}

void TestScriptedControls::scriptsOfControlsRun()
{
    QFETCH(QString, control);
    QFETCH(QString, printed);
    UiSession session;
    QVERIFY(session.session().run("window w; columnLayout; " + control));
    session.object<QAbstractButton>("x")->click();
    QCOMPARE(session.session().takeMessages().join("+"), "display: " + printed);
}

void TestScriptedControls::failingScriptsAreReported()
{
    UiSession session;
    session.session().run("window w; columnLayout; button -c \"noSuchThing\" b;");
    session.object<QPushButton>("b")->click();
    QCOMPARE(session.session().takeMessages(),
             QStringList() << "error: line 1: Cannot find procedure \"noSuchThing\".");
}

void TestScriptedControls::aControlMayDeleteItself()
{
    UiSession session;
    session.session().run("window w; columnLayout; button -c \"deleteUI w; print (`button -ex "
                          "b`)\" b; showWindow w;");
    QPointer<QPushButton> button = session.object<QPushButton>("b");
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(session.session().takeMessages(), QStringList() << "display: 0");
    UiSession::deleteRemoved();
    QVERIFY(button.isNull());
}

void TestScriptedControls::aMenuMayEmptyItself()
{
    UiSession session;
    session.session().run("menu -p MayaWindow m; "
                          "menuItem -c \"menu -e -deleteAllItems m; print done\" a;");
    QPointer<QAction> action = session.object<QAction>("a");
    action->trigger();
    QCOMPARE(session.session().takeMessages(), QStringList() << "display: done");
    UiSession::deleteRemoved();
    QVERIFY(action.isNull());
    QVERIFY(session.object<QMenu>("m")->actions().isEmpty());
}

void TestScriptedControls::fieldsRunTheirScriptsOnReturn()
{
    UiSession session;
    session.session().run("window w; columnLayout; textField "
                          "-ec \"print (`textField -q -tx f`)\" f; showWindow w;");
    QTest::keyClicks(session.object<QLineEdit>("f"), "abc");
    QTest::keyClick(session.object<QLineEdit>("f"), Qt::Key_Return);
    QCOMPARE(session.session().takeMessages(), QStringList() << "display: abc");
}

void TestScriptedControls::submenusAreFilledWhenShown()
{
    UiSession session;
    QMenu *windows = session.object<QMenu>("mainWindowMenu");
    QVERIFY(windows->actions().isEmpty());
    QMetaObject::invokeMethod(windows, "aboutToShow");
    QVERIFY(!windows->actions().isEmpty());
    QMenu *editors = windows->actions().at(0)->menu();
    QCOMPARE(editors->title(), QString("General Editors"));
    QVERIFY(editors->actions().isEmpty());
    QMetaObject::invokeMethod(editors, "aboutToShow");
    QCOMPARE(editors->actions().at(0)->text(), QString("Script Editor"));
}

void TestScriptedControls::closingAWindowEndsItsElements()
{
    UiSession session;
    session.session().run("window -cc \"print bye\" w; columnLayout; button b; showWindow w;");
    session.object<QWidget>("w")->close();
    UiSession::deleteRemoved();
    QCOMPARE(session.session().takeMessages(), QStringList() << "display: bye");
    QCOMPARE(session.answer("window -exists w"), QString("0"));
    QCOMPARE(session.answer("button -exists b"), QString("0"));
}

void TestScriptedControls::jobsDieWithTheirWindow()
{
    UiSession session;
    session.session().run("window w;");
    const int job =
        session.answer("scriptJob -parent w -event \"SelectionChanged\" \"print 1\"").toInt();
    QVERIFY(session.session()->scriptJobs().exists(job));
    session.session().run("deleteUI w");
    QVERIFY(!session.session()->scriptJobs().exists(job));
}

void TestScriptedControls::elementsFollowTheirWidgets()
{
    UiSession session;
    session.session().run("window w; columnLayout c; button b; rowLayout r; button d;");
    delete session.object<QWidget>("r");
    QCOMPARE(session.answer("lsUI -type button"), QString("b"));
    QCOMPARE(session.answer("setParent -q"), QString("w|c"));
}

CORVANE_TEST_MAIN(TestScriptedControls)
#include "tst_scriptedcontrols.moc"
