// SPDX-License-Identifier: MIT
// Quick Help between the document and its dock.
#include "analysis/edquickhelpview.h"
#include "bridge/melnametable.h"
#include "tests/mainwindow/windowfixture.h"
#include "tests/support/datatable.h"
#include "tests/support/skip.h"
#include "tests/support/testmain.h"

#include <QDockWidget>
#include <QLineEdit>
#include <QSignalSpy>

class TestWindowQuickHelp : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void flagsAreInsertedAsTheLanguageHasThem_data();
    void flagsAreInsertedAsTheLanguageHasThem();
    void keywordsGoByTheirShortNames();
    void f4LeadsFromTheWordToItsFlag();
    void f4FindsTheCommand_data();
    void f4FindsTheCommand();
    void f4BringsTheKeyboardToAFloatingDock();
    void completionsChangeNothingElse();
    void thePageIsThatOfTheLanguage();
    void f5FindsTheCommandAtTheCaret();
};

namespace {

CommandHelp answer(const QString &name)
{
    CommandHelp help;
    if (name == "ls" || name == "polySphere") {
        help.kind = CommandKind::Command;
        help.hasPage = true;
        help.flags << CommandFlag{"r", "radius", "Length"} << CommandFlag{"sl", "selection", ""}
                   << CommandFlag{"i", "import", ""};
    }
    return help;
}

// The caret is "|", a selection stands in brackets.
void setMarkedText(EdCodeEdit *edit, QString text)
{
    const int anchor = int(text.indexOf('['));
    text.remove('[');
    const int caret = int(text.indexOf(anchor < 0 ? '|' : ']'));
    text.remove(caret, 1);
    edit->setText(text);
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(anchor < 0 ? caret : anchor);
    cursor.setPosition(caret, QTextCursor::KeepAnchor);
    edit->setTextCursor(cursor);
}

bool becomesActive(const QWidget *window)
{
    for (int i = 0; i < 200 && QApplication::activeWindow() != window; ++i)
        QTest::qWait(5);
    return QApplication::activeWindow() == window;
}

QString markedText(EdCodeEdit *edit)
{
    return edit->toPlainText().insert(edit->textCursor().position(), '|');
}

} // namespace

void TestWindowQuickHelp::initTestCase()
{
    setCommandHelpSource(answer);
    for (const char *name : {"", "ls", "polySphere", "print"}) // Maya's list has empty names
        melNameTable().insert(name, name);
}

void TestWindowQuickHelp::cleanupTestCase()
{
    setCommandHelpSource(nullptr);
    melNameTable().clear();
}

void TestWindowQuickHelp::flagsAreInsertedAsTheLanguageHasThem_data()
{
    columns<int, QString, QString>("type", "text", "expected");

    const int mel = 0;
    const int python = 1;
    row("behind-the-command", mel, "ls|", "ls -radius |");
    row("behind-a-blank", mel, "ls |-sl", "ls -radius |-sl");
    row("dash-typed", mel, "ls -|", "ls -radius |");
    row("start-typed", mel, "ls -ra|", "ls -radius |");
    row("other-flag-typed", mel, "ls -sl|", "ls -sl -radius |");
    row("in-another-flag", mel, "ls -t|yp \"a\"", "ls -radius |-typ \"a\"");
    row("behind-a-dash", mel, "ls -|typ \"a\"", "ls -radius |-typ \"a\"");
    row("in-its-start", mel, "ls -|ra", "ls -radius |");
    row("in-the-command", mel, "l|s;", "ls -radius |;");
    row("before-the-command", mel, "|ls;", "ls -radius |;");
    row("command-selected", mel, "`[ls]`", "`ls -radius |`");
    row("empty-line", mel, "|", "-radius |");
    row("first-parameter", python, "cmds.ls(|)", "cmds.ls(radius=|)");
    row("next-parameter", python, "cmds.ls(sl=1|)", "cmds.ls(sl=1, radius=|)");
    row("behind-a-comma", python, "cmds.ls(a,|)", "cmds.ls(a, radius=|)");
    row("comma-and-blank", python, "ls(a, |)", "ls(a, radius=|)");
    row("parameter-begun", python, "cmds.ls(a, ra|)", "cmds.ls(a, radius=|)");
    row("without-parentheses", python, "cmds.ls|", "cmds.ls(radius=|");
    row("into-the-parentheses", python, "cmds.[ls]()", "cmds.ls(radius=|)");
    row("line-of-its-own", python, "ls(\n    |)", "ls(\n    radius=|)");
    row("behind-the-statement", mel, "`ls -sl`; |", "`ls -sl -radius |`; ");
    row("behind-another-statement", mel, "ls; select;|", "ls; select; -radius |");
    row("before-others", python, "cmds.l|s(sl=1)", "cmds.ls(radius=|, sl=1)");
    row("start-of-others", python, "x = ls(\n    |sl=1)", "x = ls(\n    radius=|, sl=1)");
    row("behind-values", python, "ls(|'a, (', b(1, 2) , sl=1)",
        "ls('a, (', b(1, 2), radius=| , sl=1)");
    row("in-a-string", python, "ls('a,|b', *c)", "ls('a,b', radius=|, *c)");
    row("in-a-value", python, "ls(sl=|1)", "ls(sl=1, radius=|)");
    row("behind-the-call", python, "cmds.ls(sl=f(1))|", "cmds.ls(sl=f(1), radius=|)");
    row("in-a-lambda", python, "ls(c=lambda a,| b=(1, 2): a, d=1)",
        "ls(c=lambda a, b=(1, 2): a, radius=|, d=1)");
    row("behind-a-gap", python, "ls ( 1 )|", "ls ( 1, radius=| )");
    row("in-a-call-inside", python, "ls(a=f(1, {|2}), sl=1)", "ls(a=f(1, {2}), radius=|, sl=1)");
    row("behind-another-call", python, "ls(f(1)|)", "ls(f(1), radius=|)");
    row("name-with-a-value", python, "ls(a, r|a=1)", "ls(a, radius=|1)");
    row("last-of-lines", python, "ls(\n    a=1,\n    b=2|\n)",
        "ls(\n    a=1,\n    b=2, radius=|\n)");
    row("above-others", python, "ls(|\n    a=1)", "ls(radius=|,\n    a=1)");
    row("above-values", python, "ls(|\n    'a',  # (\n    b=1)",
        "ls(\n    'a', radius=|,  # (\n    b=1)");
    row("behind-lines", python, "ls(\n    a=')',\n)|", "ls(\n    a=')', radius=|\n)");
    row("continued", mel, "ls\n    -sl // ;\n;|", "ls\n    -sl // ;\n-radius |;");
    row("own-line", mel, "ls -sl\n|;", "ls -sl\n-radius |;");
    row("next-line", mel, "ls -sl;\n|", "ls -sl;\n-radius |");
    row("comment", python, "ls(\n    a=1,  # b|c\n)", "ls(\n    a=1, radius=|  # bc\n)");
    row("comment-of-mel", mel, "ls -sl // a|\n;", "ls -sl -radius | // a\n;");
    row("comment-elsewhere", mel, "ls;\n// ls|", "ls;\n// ls -radius |");
    row("string", mel, "ls -n \"a |b\";", "ls -n \"a b\" -radius |;");
    const QString hebrew = QString::fromUtf8("\xd7\x90\xd7\x91 = ");
    row("right-to-left", python, hebrew + "ls(ra|)", hebrew + "ls(radius=|)");
}

void TestWindowQuickHelp::flagsAreInsertedAsTheLanguageHasThem()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    WindowFixture fixture;
    fixture.showActive();
    fixture.newBuffer(type, "");
    fixture.window.updateAndShowQuickHelp("ls", false);
    setMarkedText(fixture.edit(), text);
    const QString before = fixture.edit()->toPlainText();
    fixture.window.insertQuickHelpFlag(type == 0 ? "radius" : "-radius"); // as Maya has it
    QTEST(markedText(fixture.edit()), "expected");
    fixture.edit()->undo();
    QCOMPARE(fixture.edit()->toPlainText(), before);
    fixture.edit()->document()->setModified(false);
}

// "import=" would be no Python.
void TestWindowQuickHelp::keywordsGoByTheirShortNames()
{
    WindowFixture fixture;
    fixture.showActive();
    for (const int type : {0, 1}) {
        fixture.newBuffer(type, type == 0 ? "ls -im" : "ls(im");
        fixture.window.updateAndShowQuickHelp("ls", false);
        fixture.edit()->moveCursor(QTextCursor::End);
        fixture.window.insertQuickHelpFlag("import");
        QCOMPARE(markedText(fixture.edit()), QString(type == 0 ? "ls -import |" : "ls(i=|"));
    }
}

void TestWindowQuickHelp::f4LeadsFromTheWordToItsFlag()
{
    WindowFixture fixture;
    fixture.showActive();
    fixture.newBuffer(0, "");
    setMarkedText(fixture.edit(), "poly|Sphere");
    fixture.edit()->setFocus();
    QTest::keyClick(fixture.edit(), Qt::Key_F4);
    EdQuickHelpView *view = fixture.window.findChild<EdQuickHelpView *>();
    QVERIFY(view->isVisible());
    QCOMPARE(view->command(), QString("polySphere"));
    QVERIFY(fixture.edit()->hasFocus());
    QTest::keyClick(fixture.edit(), Qt::Key_F4); // again: the keyboard goes there
    QLineEdit *filter = view->findChild<QLineEdit *>("filter");
    QVERIFY(filter->hasFocus());
    QTest::keyClicks(filter, "sel");
    QTest::keyClick(filter, Qt::Key_Return);
    QVERIFY(fixture.edit()->hasFocus());
    QCOMPARE(markedText(fixture.edit()), QString("polySphere -selection |"));
}

void TestWindowQuickHelp::f4FindsTheCommand_data()
{
    columns<int, QString, QString>("type", "text", "command");

    const int mel = 0;
    const int python = 1;
    row("parameter", python, "x = mc.polySphere(rad|ius=1)", "polySphere");
    row("between", python, "mc.polySphere(r=1, |)", "polySphere");
    row("name", python, "mc.poly|Sphere()", "polySphere");
    row("selection", python, "[mc.polySphere(]", "polySphere");
    row("parameter-named-as-a-command", python, "mc.polySphere(r, l|s = 1)", "polySphere");
    row("negated", python, "mc.ls(1, -mc.poly|Sphere())", "polySphere");
    row("compared", python, "mc.ls(poly|Sphere == 1)", "polySphere");
    row("later-line", python, "ls(1)\nmc.polySphere(\n  a=')',  # )\n  r|=1,\n)", "polySphere");
    row("joined-lines", python, "mc.polySphere(r=1, \\\n  n=\"\"\"(\n(\"\"\", |", "polySphere");
    row("behind-a-dictionary", python, "mc.polySphere(a={1: f(2)}, r=(3, |4))", "polySphere");
    row("behind-the-call", python, "x = mc.polySphere(r=f(1)) |", "polySphere");
    row("in-another-call", python, "mc.polySphere (n=f(|1))", "polySphere");
    row("in-print", python, "print(mc.polySphere(r=1))|", "polySphere");
    row("next-statement", python, "mc.polySphere(r=1)\n|", "");
    row("left-open-above", python, "mc.polySphere(r=1\nx = 1|", "");
    row("flag-named-as-a-command", mel, "polySphere -l|s 1", "polySphere");
    row("in-backquotes", mel, "f(`polySphere -ls|`)", "polySphere");
    row("difference", mel, "ls -polySphere|(1)", "polySphere");
    row("continued", mel, "ls;\npolySphere // ls;\n  -n \"; ls\"\n  -r| 1\n;", "polySphere");
    row("comment-of-lines", mel, "polySphere /* ls;\n\n `ls */ -r|", "polySphere");
    row("behind-a-condition", mel, "if (1 > 0) polySphere -r|", "polySphere");
    row("behind-the-statement", mel, "ls; `polySphere -r 1`; |", "polySphere");
    row("below-the-statement", mel, "polySphere -r 1;\n|", "");
    row("comment", mel, "// see polySphere|.", "polySphere");
}

void TestWindowQuickHelp::f4FindsTheCommand()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    WindowFixture fixture;
    fixture.showActive();
    fixture.newBuffer(type, "");
    setMarkedText(fixture.edit(), text);
    QTest::keyClick(fixture.edit(), Qt::Key_F4);
    QTEST(fixture.window.findChild<EdQuickHelpView *>()->command(), "command");
    fixture.edit()->document()->setModified(false);
}

void TestWindowQuickHelp::f4BringsTheKeyboardToAFloatingDock()
{
    WindowFixture fixture;
    fixture.showActive();
    fixture.newBuffer(0, "ls");
    QDockWidget *dock = fixture.window.dock(Dock::QuickHelp);
    dock->setFloating(true);
    QTest::keyClick(fixture.edit(), Qt::Key_F4);
    QApplication::processEvents(); // it comes in front
    fixture.window.activateWindow();
    if (!becomesActive(&fixture.window))
        CORVANE_SKIP("Windows are not activated here.");
    QTest::keyClick(fixture.edit(), Qt::Key_F4);
    QVERIFY(becomesActive(dock));
    QVERIFY(dock->findChild<QLineEdit *>("filter")->hasFocus());
}

void TestWindowQuickHelp::completionsChangeNothingElse()
{
    WindowFixture fixture;
    fixture.showActive();
    fixture.newBuffer(0, "");
    fixture.edit()->setFocus();
    QDockWidget *dock = fixture.window.dock(Dock::QuickHelp);
    fixture.window.updateAndShowQuickHelp("ls", true);
    QVERIFY(!dock->isVisible());
    dock->show();
    fixture.window.updateAndShowQuickHelp("polySphere", true);
    fixture.window.updateAndShowQuickHelp("polySphere", true);
    fixture.window.updateAndShowQuickHelp("noCommand", true);
    fixture.window.updateAndShowQuickHelp("", true);
    QCOMPARE(fixture.window.findChild<EdQuickHelpView *>()->command(), QString("polySphere"));
    QVERIFY(fixture.edit()->hasFocus());
}

void TestWindowQuickHelp::thePageIsThatOfTheLanguage()
{
    WindowFixture fixture;
    QSignalSpy help(&fixture.window, SIGNAL(commandHelpRequested(QString, bool)));
    fixture.newBuffer(1, "");
    fixture.window.openQuickHelpPage("ls");
    fixture.newBuffer(0, "");
    fixture.window.openQuickHelpPage("ls");
    QCOMPARE(help.value(0).value(1).toBool(), true);
    QCOMPARE(help.value(1).value(1).toBool(), false);
    QCOMPARE(help.value(1).value(0).toString(), QString("ls"));
}

// What is selected is taken as it is.
void TestWindowQuickHelp::f5FindsTheCommandAtTheCaret()
{
    WindowFixture fixture;
    fixture.showActive();
    fixture.newBuffer(1, "");
    QSignalSpy help(&fixture.window, SIGNAL(commandHelpRequested(QString, bool)));
    for (const char *text : {"mc.l|s(r=1)", "x = 1|", "mc.[ls](r=1)", "[mc.ls](r=1)"}) {
        setMarkedText(fixture.edit(), text);
        QTest::keyClick(fixture.edit(), Qt::Key_F5);
    }
    QStringList commands;
    while (!help.isEmpty())
        commands << help.takeFirst().value(0).toString();
    QCOMPARE(commands.join(" "), QString("ls  ls mc.ls"));
}

CORVANE_TEST_MAIN(TestWindowQuickHelp)
#include "tst_windowquickhelp.moc"
