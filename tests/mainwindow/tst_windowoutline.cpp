// SPDX-License-Identifier: MIT
// The outline dock follows the active document, and leads to places in it.
#include "analysis/edoutlineview.h"
#include "tests/mainwindow/windowfixture.h"
#include "tests/support/testmain.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"

#include <QDockWidget>
#include <QTextCursor>
#include <QTreeWidget>

class TestWindowOutline : public QObject
{
    Q_OBJECT

private slots:
    void itAlwaysShowsTheActiveDocument();
    void itemsLeadToTheirNames();
    void placesAreFoundAfterEditsOfManyLines();
    void savingUnderAnotherNameKeepsItOpen();
    void theCaretMarksItsItem();
};

static QTreeWidget *tree(const WindowFixture &fixture)
{
    return fixture.window.dock(Dock::Outline)->widget()->findChild<QTreeWidget *>();
}

static QString names(const WindowFixture &fixture)
{
    QStringList names;
    for (int i = 0; i < tree(fixture)->topLevelItemCount(); ++i)
        names << tree(fixture)->topLevelItem(i)->text(0);
    return names.join(" ");
}

void TestWindowOutline::itAlwaysShowsTheActiveDocument()
{
    WindowFixture fixture;
    EdCentralWidget *central = fixture.window.central();
    fixture.window.open(fixture.dir.write("a.mel", "proc one() {}\nproc two() {}\n"));
    QCOMPARE(names(fixture), QString("one two"));
    fixture.window.open(fixture.dir.write("b.py", "def three():\n    pass\n"));
    QCOMPARE(names(fixture), QString("three"));
    central->pane(0)->previousTab();
    QCOMPARE(names(fixture), QString("one two"));
    central->moveToOtherView(0, 0);
    QCOMPARE(names(fixture), QString("one two"));
    central->setActiveTabWidgetIndex(0);
    QCOMPARE(names(fixture), QString("three"));
    fixture.window.open(fixture.dir.write("c.txt", "proc none() {}"));
    QCOMPARE(names(fixture), QString());
    central->closeAll();
    QCOMPARE(names(fixture), QString());
}

// Wherever these are now: the text may have changed since it was parsed.
void TestWindowOutline::itemsLeadToTheirNames()
{
    WindowFixture fixture;
    fixture.window.open(fixture.dir.write("a.mel", "proc one() {}\nproc two() {}\n"));
    fixture.edit()->insertPlainText("// more\n");
    QTreeWidgetItem *item = tree(fixture)->topLevelItem(1);
    QVERIFY(QMetaObject::invokeMethod(fixture.window.dock(Dock::Outline)->widget(), "onItemClicked",
                                      Q_ARG(QTreeWidgetItem *, item), Q_ARG(int, 0)));
    QCOMPARE(fixture.edit()->textCursor().selectedText(), QString("two"));
    // Not what was typed into the document before.
    fixture.window.open(fixture.dir.write("b.mel", "proc one() {}\nproc two() {}\n"));
    item = tree(fixture)->topLevelItem(0);
    QVERIFY(QMetaObject::invokeMethod(fixture.window.dock(Dock::Outline)->widget(), "onItemClicked",
                                      Q_ARG(QTreeWidgetItem *, item), Q_ARG(int, 0)));
    QCOMPARE(fixture.edit()->textCursor().selectedText(), QString("one"));
}

// As one change, which alone would not tell where the names are in it.
void TestWindowOutline::placesAreFoundAfterEditsOfManyLines()
{
    WindowFixture fixture;
    fixture.window.open(fixture.dir.write("a.mel", "proc one() {}\nproc two() {}\n// end\n"));
    fixture.edit()->selectAll();
    fixture.edit()->increaseIndent();
    QTreeWidgetItem *item = tree(fixture)->topLevelItem(1);
    QVERIFY(QMetaObject::invokeMethod(fixture.window.dock(Dock::Outline)->widget(), "onItemClicked",
                                      Q_ARG(QTreeWidgetItem *, item), Q_ARG(int, 0)));
    QCOMPARE(fixture.edit()->textCursor().selectedText(), QString("two"));
}

void TestWindowOutline::savingUnderAnotherNameKeepsItOpen()
{
    WindowFixture fixture;
    fixture.window.open(fixture.dir.write("a.py", "class A:\n    def b(self): pass\n"));
    tree(fixture)->expandAll();
    fixture.window.central()->pane(0)->saveAs(fixture.dir.file("b.py"));
    fixture.window.central()->activeViewChange();
    QVERIFY(tree(fixture)->topLevelItem(0)->isExpanded());
}

void TestWindowOutline::theCaretMarksItsItem()
{
    WindowFixture fixture;
    fixture.window.show();
    fixture.window.open(fixture.dir.write("a.mel", "proc one() {}\nproc two() {\n}\n"));
    fixture.edit()->goToLine(3);
    QTest::qWait(100);
    QVERIFY(tree(fixture)->currentItem());
    QCOMPARE(tree(fixture)->currentItem()->text(0), QString("two"));
    QCOMPARE(fixture.edit()->currentLine(), 3);
}

CORVANE_TEST_MAIN(TestWindowOutline)
#include "tst_windowoutline.moc"
