// SPDX-License-Identifier: MIT
#include "standin/ui/mainwindow.h"
#include "tests/standin/ui/uisession.h"
#include "tests/support/testmain.h"

#include <maya/MQtUtil.h>

#include <QAction>
#include <QTest>
#include <QToolButton>

namespace {

// The texts with which an editor plug-in finds its place in the interface.
const char createItem[] =
    "proc string cvCreateScriptEditorMenu() { global string $gMainWindowMenu;"
    "buildViewMenu($gMainWindowMenu);string $menus[] = `menu -q -ia $gMainWindowMenu`;"
    "for ($menu in $menus) { string $label = `menu -q -l $menu`;"
    "if ($label == `uiRes(\"m_WindowMenu.kGeneralEditorsLabel\")`) {"
    "buildObjectEdMenu($menu);menuItem -p $menu -divider true;"
    "$menuItem = `menuItem -p $menu -l \"Corvane Editor\" -c corvaneEditor`;"
    "return $menuItem; } }return \"\"; }cvCreateScriptEditorMenu();";

const char findButton[] =
    "proc string cvGetScriptEditorButton() { $sym = `lsUI -type symbolButton`;"
    "for ($s in $sym) { string $cmd = `symbolButton -q -c $s`; if ($cmd == \"ScriptEditor\") "
    "return $s; }return \"\"; }cvGetScriptEditorButton()";

const char currentTrace[] = "proc string cvCurrentTrace() { "
                            "if (`window -exists cvTempReporterWnd`) deleteUI cvTempReporterWnd;"
                            "window cvTempReporterWnd;$lay = `columnLayout`;"
                            "$reporter = `cmdScrollFieldReporter -fst \"\"`;"
                            "$text = `cmdScrollFieldReporter -q -t $reporter`;"
                            "deleteUI cvTempReporterWnd;return $text; }cvCurrentTrace();";

} // namespace

class TestPluginFootholds : public QObject
{
    Q_OBJECT

private slots:
    void aMenuItemComesAndGoes();
    void theItemRunsItsCommand();
    void theScriptEditorButtonChangesHands();
    void theTraceIsTheHistory();
    void pluginsFindWidgetsByName();
};

void TestPluginFootholds::aMenuItemComesAndGoes()
{
    UiSession session;
    session.answer("buildViewMenu $gMainWindowMenu");
    const QString before = session.answer("lsUI -long -menuItems");
    const QString path = session.answer(createItem);
    QVERIFY2(path.startsWith("MayaWindow|mainWindowMenu|"), qPrintable(path));
    QCOMPARE(session.answer("menuItem -q -label " + path), QString("Corvane Editor"));
    QVERIFY(session.session().run("deleteUI -mi " + path + ";"));
    QCOMPARE(session.answer("menuItem -exists " + path), QString("0"));
    // The divider and what was built lazily stay, as they do in the real host.
    QVERIFY(session.answer("lsUI -long -menuItems").startsWith(before.section(' ', 0, 3)));
    QVERIFY(session.answer("deleteUI -mi " + path).startsWith("error: "));
}

void TestPluginFootholds::theItemRunsItsCommand()
{
    UiSession session;
    session.session().run("global proc corvaneEditor() { print \"opened\"; }");
    const QString path = session.answer(createItem);
    session.session().takeMessages();
    session.ui().findMenuItem(path.toUtf8().constData())->trigger();
    QCOMPARE(session.session().takeMessages(), QStringList() << "display: opened");
}

void TestPluginFootholds::theScriptEditorButtonChangesHands()
{
    UiSession session;
    const QString name = session.answer(findButton);
    QCOMPARE(name, QString("cmdWndIcon"));
    session.session().run("global proc corvaneEditor() { print \"opened\"; }");
    QVERIFY(session.session().run("symbolButton -e -c corvaneEditor " + name));
    QVERIFY(session.session().run("symbolButton -e -ann \"Corvane Editor\" " + name));
    session.session().takeMessages();
    session.object<QToolButton>("cmdWndIcon")->click();
    QCOMPARE(session.session().takeMessages(), QStringList() << "display: opened");
    QCOMPARE(session.object<QToolButton>("cmdWndIcon")->toolTip(), QString("Corvane Editor"));
    QCOMPARE(session.answer(findButton), QString());

    QVERIFY(session.session().run("symbolButton -e -c ScriptEditor " + name));
    QVERIFY(session.session().run(
        "symbolButton -e -ann (uiRes(\"m_initCommandLine.kScriptEditorAnnot\")) " + name));
    QCOMPARE(session.object<QToolButton>("cmdWndIcon")->toolTip(), QString("Script Editor"));
    QCOMPARE(session.answer(findButton), QString("cmdWndIcon"));
}

void TestPluginFootholds::theTraceIsTheHistory()
{
    UiSession session;
    session.session().run("print \"first\\n\"; warning \"careful\";");
    const QString before = session.answer("lsUI -long");
    const QString trace = session.answer(currentTrace);
    QCOMPARE(trace, QString("first\n// Warning: line 1: careful // \n"));
    QCOMPARE(session.answer("lsUI -long"), before);
    QCOMPARE(session.answer(currentTrace), trace);
}

void TestPluginFootholds::pluginsFindWidgetsByName()
{
    UiSession session;
    session.session().run("window w; columnLayout c; button b;");
    standin::InterfaceLookup &lookup = session.ui();
    QVERIFY(lookup.findControl("w|c|b") == session.object<QWidget>("b"));
    QVERIFY(lookup.findLayout("c") == session.object<QWidget>("c"));
    QVERIFY(lookup.findWindow("w") == session.object<QWidget>("w"));
    QVERIFY(!lookup.findWindow("b"));
    QVERIFY(!lookup.findLayout("b"));
    QVERIFY(lookup.mainWindow() == lookup.findWindow("MayaWindow"));
    QCOMPARE(lookup.fullName(session.object<QWidget>("b")), std::string("w|c|b"));
    QCOMPARE(lookup.fullName(&session.ui()), std::string());
    QObject child(session.object<QWidget>("b"));
    const QObject grandchild(&child);
    QVERIFY(MQtUtil::getParent(&grandchild) == session.object<QWidget>("b"));
    QVERIFY(!MQtUtil::getParent(&session.ui()));
}

CORVANE_TEST_MAIN(TestPluginFootholds)
#include "tst_pluginfootholds.moc"
