// SPDX-License-Identifier: MIT
#include "tests/standin/ui/uisession.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

// Each row is a text that runs in a fresh session and the value of its last statement, or the error
// that stops it.
class TestInterfaceCommands : public QObject
{
    Q_OBJECT

private slots:
    void scriptsGetTheExpectedAnswer_data();
    void scriptsGetTheExpectedAnswer();
    void batchSessionsHaveNoInterface();

private:
    void addWindowRows();
    void addMenuRows();
    void addControlRows();
    void addElementRows();
};

void TestInterfaceCommands::addWindowRows()
{
    row("window-answers-its-name", "window w", "w");
    row("window-exists", "window w; window -exists w;", "1");
    row("window-does-not-exist", "window -exists w;", "0");
    row("a-button-is-no-window", "window w; columnLayout; button b; window -ex b;", "0");
    row("window-name-is-unique", "window w; window w;",
        "error: line 1: Object's name 'w' is not unique.");
    row("window-is-hidden-at-first", "window w; window -q -visible w;", "0");
    row("window-is-shown", "window w; showWindow w; window -q -vis w;", "1");
    row("current-window-is-shown",
        "window w; columnLayout; showWindow; "
        "window -q -vis w;",
        "1");
    row("unknown-window-is-shown", "showWindow w;", "error: line 1: Object 'w' not found.");
    row("window-title", "window -title \"A b\" w; window -q -t w;", "A b");
    row("window-size", "window -wh 321 123 w; window -q -widthHeight w;", "321 123");
    row("names-become-words", "window \"a b-c\";", "a_b_c");
}

void TestInterfaceCommands::addMenuRows()
{
    row("menu-item-path", "menu -p MayaWindow m; menuItem -p m -label \"A\" a;", "MayaWindow|m|a");
    row("items-go-to-the-current-menu",
        "menu -p MayaWindow m; menuItem a; menuItem -subMenu true s; menuItem b;",
        "MayaWindow|m|s|b");
    row("parent-of-menus-goes-up",
        "menu -p MayaWindow m; menuItem -sm true s; setParent -menu ..; menuItem b;",
        "MayaWindow|m|b");
    row("item-array-holds-short-names",
        "menu -p MayaWindow m; menuItem a; menuItem -divider true d; menu -q -ia m;", "a d");
    row("every-item-has-a-label-to-ask-for",
        "menu -p MayaWindow m; menuItem -d true d; menuItem -l \"A & b\" a; "
        "`menuItem -q -l d` + \"/\" + `menuItem -q -l a`;",
        "/A & b");
    row("submenu-is-a-menu", "menu -p MayaWindow m; menuItem -subMenu true -l A a; menu -q -l a;",
        "A");
    row("plain-item-is-no-menu", "menu -p MayaWindow m; menuItem -l A a; menu -q -l a;",
        "error: line 1: Object 'a' not found.");
    row("check-box-state",
        "menu -p MayaWindow m; menuItem -checkBox true a; menuItem -e -cb false a; "
        "menuItem -q -cb a;",
        "0");
    row("all-items-are-deleted",
        "menu -p MayaWindow m; menuItem a; menuItem b; menu -e -deleteAllItems m; "
        "menu -q -numberOfItems m;",
        "0");
    row("item-needs-a-menu", "menuItem -label x;",
        "error: line 1: Menu items must have a menu.  No menu found.");
    row("plain-item-holds-no-items", "menu -p MayaWindow m; menuItem a; menuItem -p a b;",
        "error: line 1: Menu items must have a menu.  No menu found.");
    row("windows-menu-begins-with-editors",
        "buildViewMenu $gMainWindowMenu; string $i[] = `menu -q -ia $gMainWindowMenu`; "
        "menu -q -l $i[0];",
        "General Editors");
    row("menus-are-built-once",
        "buildViewMenu mainWindowMenu; int $n = `menu -q -ni mainWindowMenu`; "
        "buildViewMenu mainWindowMenu; `menu -q -ni mainWindowMenu` - $n;",
        "0");
}

void TestInterfaceCommands::addControlRows()
{
    const QString window = "window w; columnLayout c; ";
    row("control-path", window + "button b;", "w|c|b");
    row("numbered-name", window + "button; button;", "w|c|button2");
    row("named-parent", window + "rowLayout r; button -p c b;", "w|c|b");
    row("layouts-nest", window + "rowLayout r; setParent ..; text t;", "w|c|t");
    row("control-needs-a-layout", "window w; button b;",
        "error: line 1: Controls must have a layout.  No layout found.");
    row("button-label",
        window + "button -label x b; button -e -l \"y z\" b; "
                 "button -q -label b;",
        "y z");
    row("symbol-button-command",
        window + "symbolButton -command \"print 1\" s; symbolButton -q -c s;", "print 1");
    row("text-field",
        window + "textField f; textField -e -text \"a\\\"b\" f; "
                 "textField -q -tx f;",
        "a\"b");
    row("check-box", window + "checkBox -value on c2; checkBox -q -v c2;", "1");
    row("enabled", window + "button -enable false b; control -q -en b;", "0");
    row("annotation", window + "button -ann \"tip\" b; button -q -annotation b;", "tip");
    row("parent-of-a-control", window + "button b; button -q -parent b;", "w|c");
    row("scroll-layout-holds-controls",
        window + "scrollLayout s; button b; layout -q -childArray s;", "b");
    row("wrong-type", window + "button b; textField -q -tx b;",
        "error: line 1: Object 'b' not found.");
    row("unanswered-dialog", "confirmDialog -m x -b A -ds no;", "no");
    row("wait-cursor",
        "waitCursor -state on; int $on = `waitCursor -q`; "
        "waitCursor -st off; $on * 2 + `waitCursor -q`;",
        "2");
}

void TestInterfaceCommands::addElementRows()
{
    row("unknown-element-is-deleted", "deleteUI nothing;",
        "error: line 1: Object 'nothing' not found.");
    row("children-go-with-their-parent",
        "window w; columnLayout; button b; deleteUI w; control -exists b;", "0");
    row("kind-is-respected-by-deletion", "window w; deleteUI -menuItem w;",
        "error: line 1: Object 'w' not found.");
    row("main-window-stays", "deleteUI MayaWindow;",
        "error: line 1: The main window cannot be deleted.");
    row("deleted-name-is-free", "window w; deleteUI w; window w;", "w");
    row("part-of-a-path-finds", "window w; columnLayout c; button b; button -ex \"c|b\";", "1");
    row("half-a-name-does-not", "window wide; columnLayout c; layout -ex \"ide|c\";", "0");
    row("listing-by-type", "lsUI -type symbolButton;", "cmdWndIcon");
    row("listing-long-names", "lsUI -long -type symbolButton;",
        "MayaWindow|CommandLine|cmdWndIcon");
    row("listing-nothing", "size(`lsUI -type nothing`);", "0");
    row("listing-windows", "window w; lsUI -windows;", "MayaWindow w");
    row("resource-text", "uiRes(\"m_initCommandLine.kScriptEditorAnnot\");", "Script Editor");
    row("script-editor-is-a-run-time-command", "whatIs ScriptEditor;", "Run Time Command");
}

void TestInterfaceCommands::scriptsGetTheExpectedAnswer_data()
{
    columns<QString, QString>("script", "answer");
    addWindowRows();
    addMenuRows();
    addControlRows();
    addElementRows();
}

void TestInterfaceCommands::scriptsGetTheExpectedAnswer()
{
    QFETCH(QString, script);
    QFETCH(QString, answer);
    UiSession session;
    QCOMPARE(session.answer(script), answer);
}

void TestInterfaceCommands::batchSessionsHaveNoInterface()
{
    standin::SessionOptions options;
    options.batch = true;
    TestSession session(options);
    QVERIFY(!session.run("window w"));
    QCOMPARE(session.takeMessages(), QStringList()
                                         << "error: line 1: Cannot find procedure \"window\".");
}

CORVANE_TEST_MAIN(TestInterfaceCommands)
#include "tst_interfacecommands.moc"
