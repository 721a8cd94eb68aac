// SPDX-License-Identifier: MIT
#include "analysis/commandword.h"
#include "analysis/edquickhelpview.h"
#include "analysis/flaglist.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolButton>

class TestEdQuickHelpView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { setCommandHelpSource(nullptr); }
    void wordsAreFound_data();
    void wordsAreFound();
    void itTellsWhatANameIs_data();
    void itTellsWhatANameIs();
    void theHostIsAskedOnceAndOnlyWhenSeen();
    void theFilterNarrowsAndChooses();
    void keysReachEverything();
    void backShowsWhatWasShown();
    void manyFlagsAreListedAtOnce();
    void aSmallViewShowsSeveralFlagsWhole();
};

namespace {

int asked = 0;

CommandHelp answer(const QString &name)
{
    ++asked;
    CommandHelp help;
    if (name == "ls" || name == "many")
        help.kind = CommandKind::Command;
    help.hasPage = name == "ls";
    if (name == "ls")
        help.flags << CommandFlag{"sl", "selection", ""} << CommandFlag{"l", "long", ""}
                   << CommandFlag{"typ", "type", "String"} << CommandFlag{"x", "", "Int"};
    for (int i = 0; name == "many" && i < 300; ++i)
        help.flags << CommandFlag{QString("f%1").arg(i), QString("flagNumber%1").arg(i), "Length"};
    if (name == "Undo")
        help.kind = CommandKind::RuntimeCommand;
    if (name == "myProc")
        help.kind = CommandKind::Procedure;
    return help;
}

struct Shown : EdQuickHelpView
{
    FlagList *flags = findChild<FlagList *>();
    QLineEdit *filter = findChild<QLineEdit *>("filter");
    QLineEdit *entry = findChild<QLineEdit *>("command");

    Shown()
    {
        show();
        QApplication::setActiveWindow(this);
    }

    QString message() const { return findChild<QLabel *>("message")->text(); }

    // The long names that are not filtered away, the current one in brackets.
    QString list() const
    {
        QStringList names;
        for (int i = 0; i < flags->topLevelItemCount(); ++i) {
            QTreeWidgetItem *item = flags->topLevelItem(i);
            if (!item->isHidden())
                names << (item == flags->currentItem() ? "[" + item->text(0) + "]" : item->text(0));
        }
        return names.join(" ");
    }
};

} // namespace

void TestEdQuickHelpView::init()
{
    asked = 0;
    setCommandHelpSource(answer);
}

// The caret is "|"; before the arrow the name at it, behind it the command before it.
void TestEdQuickHelpView::wordsAreFound_data()
{
    columns<QString, QString>("line", "found");

    row("in-a-name", "poly|Sphere -r 1", "polySphere<-poly");
    row("at-its-end", "ls|;", "ls<-ls");
    row("flag", "ls -sel|ection", "selection<-ls");
    row("behind-a-blank", "ls -sl |", "<-ls");
    row("second-statement", "ls; select -r|", "r<-select");
    row("backquote", "$a = `ls -t |`", "<-ls");
    row("variable", "$sphe|re", "<-");
    row("module", "mc.poly|Sphere(r=1)", "polySphere<-mc");
    row("before-the-dot", "cm|ds.ls()", "ls<-cm");
    row("in-a-call", "a = cmds.ls(f(1), |)", "<-ls");
    row("number", "move 1.5| 2", "<-move");
    row("empty", "|", "<-");
}

void TestEdQuickHelpView::wordsAreFound()
{
    QFETCH(QString, line);
    const int column = int(line.indexOf('|'));
    line.remove(column, 1);
    QTEST(commandWordAt(line, column) + "<-" + commandBefore(line, column), "found");
    QCOMPARE(commandWord(" $x = cmds.ls(sl=True)"), QString("ls"));
}

void TestEdQuickHelpView::itTellsWhatANameIs_data()
{
    columns<QString, QString, int, bool>("name", "message", "flags", "hasPage");

    row("command", "ls", "Command, 4 flags", 4, true);
    row("command-of-a-plug-in", "many", "Command, 300 flags", 300, false);
    row("runtime", "Undo", "Runtime command; such have no flags.", 0, false);
    row("procedure", "myProc", "MEL procedure; such have no flags.", 0, false);
    row("unknown", "<b>x", "Maya knows no command \"<b>x\".", 0, false);
    row("none", "", "Put the caret on a command and press F4.", 0, false);
}

void TestEdQuickHelpView::itTellsWhatANameIs()
{
    QFETCH(QString, name);
    Shown view;
    view.showCommand("ls");
    view.showCommand(name);
    QTEST(view.message(), "message");
    QCOMPARE(view.entry->text(), name);
    QTEST(view.findChild<QToolButton *>("documentation")->isVisible(), "hasPage");
    QTEST(view.flags->topLevelItemCount(), "flags");
}

void TestEdQuickHelpView::theHostIsAskedOnceAndOnlyWhenSeen()
{
    Shown view;
    view.hide();
    view.showCommand("Undo");
    view.showCommand("ls");
    QCOMPARE(asked, 0);
    view.show();
    QCOMPARE(view.message(), QString("Command, 4 flags"));
    view.showCommand("Undo");
    view.showCommand("ls");
    QCOMPARE(asked, 2);
    view.showCommand("later"); // it may be made meanwhile
    view.showCommand("later");
    QCOMPARE(asked, 4);
}

void TestEdQuickHelpView::theFilterNarrowsAndChooses()
{
    Shown view;
    QSignalSpy chosen(&view, SIGNAL(flagSelected(QString)));
    view.showCommand("ls");
    QCOMPARE(view.list(), QString("[long] selection type x"));
    QTest::keyClicks(view.filter, "L");
    QCOMPARE(view.list(), QString("[long] selection"));
    QTest::keyClicks(view.filter, "zz");
    QCOMPARE(view.list(), QString());
    QTest::keyClick(view.filter, Qt::Key_Return);
    QCOMPARE(int(chosen.size()), 0);
    QTest::keyClick(view.filter, Qt::Key_Escape);
    QTest::keyClicks(view.filter, "ty");
    QTest::keyClick(view.filter, Qt::Key_Return);
    view.filter->setText("x");
    emit view.flags->itemDoubleClicked(view.flags->currentItem(), 0);
    QCOMPARE(chosen.value(0).value(0).toString() + chosen.value(1).value(0).toString(),
             QString("typex"));
    view.focusFilter();
    QTest::keyClicks(view.filter, "l");
    QCOMPARE(view.filter->text(), QString("l"));
}

void TestEdQuickHelpView::keysReachEverything()
{
    Shown view;
    QSignalSpy entered(&view, SIGNAL(quickHelpSelected(QString, bool)));
    QSignalSpy chosen(&view, SIGNAL(flagSelected(QString)));
    QSignalSpy left(&view, SIGNAL(editorWanted()));
    view.entry->setText(" cmds.ls( ");
    QTest::keyClick(view.entry, Qt::Key_Return);
    QCOMPARE(entered.value(0).value(0).toString(), QString("ls"));
    view.showCommand("ls");
    view.entry->setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(QApplication::focusWidget(), key);
    QCOMPARE(chosen.value(0).value(0).toString(), QString("selection"));
    for (QWidget *part : {static_cast<QWidget *>(view.entry), static_cast<QWidget *>(view.filter),
                          static_cast<QWidget *>(view.flags)})
        QTest::keyClick(part, Qt::Key_Escape);
    QCOMPARE(int(left.size()), 3);
}

void TestEdQuickHelpView::backShowsWhatWasShown()
{
    Shown view;
    QToolButton *back = view.findChild<QToolButton *>("back");
    for (const char *name : {"ls", "Undo", "Undo", "unknown", "many"})
        view.showCommand(name);
    for (const char *name : {"Undo", "ls"}) {
        QVERIFY(back->isEnabled());
        back->click();
        QCOMPARE(view.command(), QString(name));
    }
    QVERIFY(!back->isEnabled());
}

void TestEdQuickHelpView::manyFlagsAreListedAtOnce()
{
    Shown view;
    qint64 best = 1000;
    for (int i = 0; i < 5; ++i) {
        view.showCommand("ls");
        QElapsedTimer timer;
        timer.start();
        view.showCommand("many");
        best = qMin(best, timer.elapsed());
    }
    QCOMPARE(view.flags->topLevelItemCount(), 300);
    QVERIFY2(best <= 20,
             qPrintable(QString::number(best))); // about 1 ms, with room for slow builds
}

// What is cut off then is the name that is too long, and no scroll bar hides the other columns.
void TestEdQuickHelpView::aSmallViewShowsSeveralFlagsWhole()
{
    FlagList list;
    const CommandFlag flag{"r", "radius", "Int"};
    list.setFlags(QList<CommandFlag>() << flag);
    list.resize(150, list.minimumSizeHint().height());
    list.show();
    QCOMPARE(list.horizontalScrollBar()->maximum(), 0);
    QVERIFY(list.viewport()->height() >= 6 * list.visualItemRect(list.topLevelItem(0)).height());

    list.setFlags(QList<CommandFlag>() << flag << CommandFlag{"x", QString(60, 'x'), "String"});
    for (const int width : {220, 180}) {
        list.resize(width, list.height());
        QApplication::processEvents();
        QCOMPARE(list.horizontalScrollBar()->maximum(), 0);
        QVERIFY(list.columnWidth(2) > list.fontMetrics().boundingRect("String").width());
        QVERIFY(list.columnWidth(0) >= list.viewport()->width() / 2);
    }
    list.setFlags(QList<CommandFlag>());
    QCOMPARE(list.horizontalScrollBar()->maximum(), 0);
    QVERIFY(list.columnWidth(0) > list.fontMetrics().boundingRect("Flag").width());
}

CORVANE_TEST_MAIN(TestEdQuickHelpView)
#include "tst_edquickhelpview.moc"
