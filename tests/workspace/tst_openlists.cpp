// SPDX-License-Identifier: MIT
#include "tests/support/datatable.h"
#include "tests/support/menuchoice.h"
#include "tests/support/testmain.h"
#include "workspace/edbufferview.h"
#include "workspace/edopendocumentview.h"

#include <QApplication>
#include <QFocusEvent>
#include <QSignalSpy>

namespace {

QStringList textsOf(const QListWidget &list)
{
    QStringList texts;
    for (int i = 0; i < list.count(); ++i)
        texts << list.item(i)->text();
    return texts;
}

} // namespace

class TestOpenLists : public QObject
{
    Q_OBJECT

private slots:
    void buffersAreKnownByTheirIndex();
    void documentsAreKnownByTheirPath();
    void renamedDocumentsAreFoundByTheirNewPath();
    void listsAreSorted();
    void selectingReportsTheIdentity();
    void onlyTheUserSelects();
    void theFocusAloneSelectsNothing();
    void clickingTheCurrentEntrySelectsItAgain();
    void theMenuActsOnItsEntry_data();
    void theMenuActsOnItsEntry();
    void emptySpaceHasNoMenu();
    void theSelectionIsSubduedWithoutFocus();
};

void TestOpenLists::buffersAreKnownByTheirIndex()
{
    EdBufferView list;
    list.addBuffer(3, "MEL", QFileInfo());
    list.addBuffer(4, "MEL", QFileInfo());
    list.renameBuffer(4, "second");
    list.renameBuffer(9, "unknown");
    list.removeBuffer(3);
    list.removeBuffer(9);
    QCOMPARE(textsOf(list), QStringList("second"));
    QCOMPARE(list.item(0)->data(Qt::UserRole).toInt(), 4);
}

void TestOpenLists::documentsAreKnownByTheirPath()
{
    EdOpenDocumentView list;
    list.addDocument("/a/tool.mel");
    list.addDocument("/b/tool.mel");
    list.removeDocument("tool.mel");
    list.removeDocument("/a/tool.mel");
    QCOMPARE(textsOf(list), QStringList("tool.mel"));
    QCOMPARE(list.item(0)->data(Qt::UserRole).toString(), QString("/b/tool.mel"));
}

void TestOpenLists::renamedDocumentsAreFoundByTheirNewPath()
{
    EdOpenDocumentView list;
    list.addDocument("/a/tool.mel");
    list.renameDocument("/a/unknown.mel", "/a/x.mel");
    list.renameDocument("/a/tool.mel", "/b/other.py");
    QCOMPARE(textsOf(list), QStringList("other.py"));
    list.removeDocument("/a/tool.mel");
    QCOMPARE(list.count(), 1);
    list.removeDocument("/b/other.py");
    QCOMPARE(list.count(), 0);
}

void TestOpenLists::listsAreSorted()
{
    EdOpenDocumentView list;
    list.addDocument("/z/b.mel");
    list.addDocument("/y/c.mel");
    list.addDocument("/x/a.mel");
    QCOMPARE(textsOf(list), words("a.mel b.mel c.mel"));
    list.renameDocument("/x/a.mel", "/x/d.mel");
    QCOMPARE(textsOf(list), words("b.mel c.mel d.mel"));
}

void TestOpenLists::selectingReportsTheIdentity()
{
    EdBufferView list;
    list.addBuffer(3, "a", QFileInfo());
    list.addBuffer(4, "b", QFileInfo());
    QSignalSpy selected(&list, SIGNAL(bufferSelected(int)));
    list.setCurrentRow(1);
    QCOMPARE(int(selected.size()), 1);
    QCOMPARE(selected.first().first().toInt(), 4);
    list.selectBuffer(nullptr);
    QCOMPARE(int(selected.size()), 1);
}

void TestOpenLists::onlyTheUserSelects()
{
    EdOpenDocumentView list;
    QSignalSpy selected(&list, SIGNAL(documentSelected(QString)));
    list.addDocument("/a/a.mel");
    list.addDocument("/a/b.mel");
    list.showCurrent("/a/b.mel");
    QCOMPARE(list.currentItem()->text(), QString("b.mel"));
    list.removeDocument("/a/b.mel");
    list.showCurrent("/not/listed");
    QVERIFY(list.selectedItems().isEmpty());
    QCOMPARE(int(selected.size()), 0);
    list.setCurrentRow(0);
    QCOMPARE(int(selected.size()), 1);
}

void TestOpenLists::theFocusAloneSelectsNothing()
{
    EdOpenDocumentView list;
    list.addDocument("/a/a.mel");
    list.addDocument("/a/b.mel");
    list.show();
    QSignalSpy selected(&list, SIGNAL(documentSelected(QString)));
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&list, &in);
    QVERIFY(!list.currentItem());
    QCOMPARE(int(selected.size()), 0);
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(int(selected.size()), 1);
    QCOMPARE(selected.first().first().toString(), QString("/a/a.mel"));
    QCoreApplication::sendEvent(&list, &in);
    QCOMPARE(list.currentRow(), 0);
}

void TestOpenLists::clickingTheCurrentEntrySelectsItAgain()
{
    EdOpenDocumentView list;
    list.addDocument("/a/tool.mel");
    list.setCurrentRow(0);
    list.show();
    QSignalSpy selected(&list, SIGNAL(documentSelected(QString)));
    const QPoint entry = list.visualItemRect(list.item(0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::KeyboardModifiers(), entry);
    QCOMPARE(int(selected.size()), 1);
    QCOMPARE(selected.first().first().toString(), QString("/a/tool.mel"));
}

void TestOpenLists::theMenuActsOnItsEntry_data()
{
    columns<QString, int, int>("choice", "removed", "renamed");

    row("close", "Close", 1, 0);
    row("rename", "Rename...", 0, 1);
    row("dismissed", "", 0, 0);
}

void TestOpenLists::theMenuActsOnItsEntry()
{
    QFETCH(QString, choice);
    QFETCH(int, removed);
    QFETCH(int, renamed);

    EdOpenDocumentView list;
    list.addDocument("/a/a.mel");
    list.addDocument("/a/b.mel");
    list.show();
    QSignalSpy removals(&list, SIGNAL(removeDocumentSelected(QString)));
    QSignalSpy renames(&list, SIGNAL(renameDocumentSelected(QString)));
    MenuChoice menu(choice);
    list.contextMenu(list.visualItemRect(list.item(1)).center());
    while (QApplication::activePopupWidget())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCOMPARE(menu.entries(), words("Close Rename..."));
    QCOMPARE(int(removals.size()), removed);
    QCOMPARE(int(renames.size()), renamed);
    for (const QList<QVariant> &arguments : removals + renames)
        QCOMPARE(arguments.first().toString(), QString("/a/b.mel"));
}

void TestOpenLists::emptySpaceHasNoMenu()
{
    EdBufferView list;
    list.addBuffer(3, "a", QFileInfo());
    QSignalSpy removals(&list, SIGNAL(removeBufferSelected(int)));
    list.contextMenu(QPoint(5, 500));
    list.removeBuffer();
    list.renameBuffer();
    QCOMPARE(int(removals.size()), 0);
}

void TestOpenLists::theSelectionIsSubduedWithoutFocus()
{
    QWidget window;
    EdBufferView list(&window);
    const QPalette::ColorGroup active = QPalette::Active;
    QFocusEvent in(QEvent::FocusIn);
    QFocusEvent out(QEvent::FocusOut);
    QCoreApplication::sendEvent(&list, &in);
    const QColor focused = list.palette().color(active, QPalette::Highlight);
    QCOMPARE(focused, QApplication::palette(&list).color(active, QPalette::Highlight));
    QCOMPARE(list.palette().color(QPalette::Inactive, QPalette::Highlight),
             list.palette().color(QPalette::Inactive, QPalette::AlternateBase));
    QCoreApplication::sendEvent(&list, &out);
    QCOMPARE(list.palette().color(active, QPalette::Highlight),
             list.palette().color(active, QPalette::AlternateBase));
    QCOMPARE(list.palette().color(active, QPalette::HighlightedText),
             list.palette().color(active, QPalette::Text));
    QPalette red = window.palette();
    red.setColor(QPalette::AlternateBase, Qt::red); // as when the program turns to other colours
    window.setPalette(red);
    QCOMPARE(list.palette().color(active, QPalette::Highlight), QColor(Qt::red));
}

CORVANE_TEST_MAIN(TestOpenLists)
#include "tst_openlists.moc"
