// SPDX-License-Identifier: MIT
#include "preferences/preferences.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"
#include "editor/edcodeedit.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QSignalSpy>
#include <QUrl>

class TestEdCentralWidget : public QObject
{
    Q_OBJECT

private slots:
    void init() { preferences() = Preferences(); }

    void theSuffixDecidesTheLanguage_data();
    void theSuffixDecidesTheLanguage();
    void changesAreNeverLostUnasked_data();
    void changesAreNeverLostUnasked();
    void anOpenFileIsOnlyShown();
    void unreadableFilesLeaveTheDocument();
    void unwritableFilesStayModified();
    void noBreakSpacesAndLineEndsSurviveSaving();
    void savingAsMovesTheDocument();
    void renamingMovesTheFile();
    void renamingNeverOverwrites();
    void reloadingAsksWhenModified();
    void tabsBecomeSpaces();
    void droppedFilesAreReported();
    void namesAndCursorAreReported();
    void doubleClickOnNothingAsksForABuffer();
};

void TestEdCentralWidget::theSuffixDecidesTheLanguage_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("language");

    QTest::newRow("mel") << "a.mel" << 2;
    QTest::newRow("py") << "a.py" << 1;
    QTest::newRow("pyw") << "a.b.pyw" << 1;
    QTest::newRow("upper-case-is-text") << "a.MEL" << 0;
    QTest::newRow("no-suffix") << "mel" << 0;
}

void TestEdCentralWidget::theSuffixDecidesTheLanguage()
{
    QFETCH(QString, name);
    QFETCH(int, language);
    ScratchDir dir;
    EdCentralWidget central;
    central.openFile(dir.write(name.toLatin1().constData(), "x"));
    QCOMPARE(central.currentCodeView()->language(), language);
}

void TestEdCentralWidget::changesAreNeverLostUnasked_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<QString>("file");

    QTest::newRow("save") << "Yes" << true << "new old";
    QTest::newRow("discard") << "No" << true << "old";
    QTest::newRow("cancel") << "Cancel" << false << "old";
    QTest::newRow("escape") << "(no such button)" << false << "old";
}

void TestEdCentralWidget::changesAreNeverLostUnasked()
{
    QFETCH(QString, button);
    QFETCH(bool, closed);
    QFETCH(QString, file);

    ScratchDir dir;
    EdCentralWidget central;
    central.openFile(dir.write("a.mel", "old"));
    central.currentCodeView()->codeEdit()->insertPlainText("new ");
    QSignalSpy fileClosed(&central, SIGNAL(fileClosed(QString)));
    ModalAnswer answer(button);
    central.newMelBuffer();
    QCOMPARE(answer.title(), QString("Save"));
    QCOMPARE(answer.text(),
             QString("'%1' has been modified. Save changes?").arg(dir.file("a.mel")));
    QCOMPARE(int(fileClosed.size()), closed ? 1 : 0);
    QCOMPARE(central.currentCodeView()->isBuffer(), closed);
    QCOMPARE(QString(dir.read("a.mel")), file);
}

void TestEdCentralWidget::anOpenFileIsOnlyShown()
{
    ScratchDir dir;
    EdCentralWidget central;
    const QString path = dir.write("a.mel", "old");
    central.openFile(path);
    central.currentCodeView()->codeEdit()->insertPlainText("new ");
    QSignalSpy opened(&central, SIGNAL(fileOpened(QString)));
    central.openFile(path);
    QCOMPARE(int(opened.size()), 0);
    QCOMPARE(central.currentCodeView()->text(), QString("new old"));
}

void TestEdCentralWidget::unreadableFilesLeaveTheDocument()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.openFile(dir.write("a.mel", "kept"));
    ModalAnswer answer("OK");
    central.openFile(dir.path());
    QCOMPARE(answer.title(), QString("File Read Error"));
    QCOMPARE(answer.text(), QString("Cannot read file %1:\nThis is a folder.").arg(dir.path()));
    QCOMPARE(central.currentCodeView()->text(), QString("kept"));
}

void TestEdCentralWidget::unwritableFilesStayModified()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.newMelBuffer();
    QSignalSpy opened(&central, SIGNAL(fileOpened(QString)));
    ModalAnswer answer("OK");
    central.saveAs(dir.path());
    QCOMPARE(answer.title(), QString("Error"));
    QVERIFY(answer.text().startsWith(QString("Cannot write file %1:\n").arg(dir.path())));
    QVERIFY(central.hasUnsavedContent());
    QVERIFY(central.currentCodeView()->isBuffer());
    QCOMPARE(int(opened.size()), 0);
}

void TestEdCentralWidget::noBreakSpacesAndLineEndsSurviveSaving()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.openFile(dir.write("a.py", "a\xC2\xA0\r\n\tb\r\n"));
    central.currentCodeView()->codeEdit()->insertPlainText("x\n");
    central.save();
    QCOMPARE(dir.read("a.py"), QByteArray("x\r\na\xC2\xA0\r\n\tb\r\n"));
}

void TestEdCentralWidget::savingAsMovesTheDocument()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.openFile(dir.write("a.mel", "x"));
    QSignalSpy opened(&central, SIGNAL(fileOpened(QString)));
    QSignalSpy closed(&central, SIGNAL(fileClosed(QString)));
    central.saveAs(dir.file("b.py"));
    QCOMPARE(closed.first().first().toString(), dir.file("a.mel"));
    QCOMPARE(opened.first().first().toString(), dir.file("b.py"));
    QCOMPARE(central.currentCodeView()->language(), int(EdCodeView::Python));
    QVERIFY(!central.hasUnsavedContent());
    QCOMPARE(dir.read("b.py"), QByteArray("x"));
}

void TestEdCentralWidget::renamingMovesTheFile()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.openFile(dir.write("a.mel", "x"));
    QSignalSpy renamed(&central, SIGNAL(fileRenamed(QString, QString)));
    ModalAnswer answer("OK");
    answer.enter("b.py");
    central.rename();
    QCOMPARE(answer.title(), QString("Rename"));
    QCOMPARE(renamed.first().at(0).toString(), dir.file("a.mel"));
    QCOMPARE(renamed.first().at(1).toString(), dir.file("b.py"));
    QVERIFY(!QFile::exists(dir.file("a.mel")));
    QCOMPARE(central.currentCodeView()->language(), int(EdCodeView::Python));
}

void TestEdCentralWidget::renamingNeverOverwrites()
{
    ScratchDir dir;
    EdCentralWidget central;
    dir.write("b.mel", "other");
    central.openFile(dir.write("a.mel", "x"));
    ModalAnswer answer("OK");
    central.currentCodeView()->rename("b.mel");
    QCOMPARE(answer.text(), QString("File already exists:\n%1").arg(dir.file("b.mel")));
    QCOMPARE(dir.read("b.mel"), QByteArray("other"));
    QCOMPARE(dir.read("a.mel"), QByteArray("x"));
}

void TestEdCentralWidget::reloadingAsksWhenModified()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.openFile(dir.write("a.mel", "one"));
    dir.write("a.mel", "two");
    central.reloadFromDisk();
    QCOMPARE(central.currentCodeView()->text(), QString("two"));

    central.currentCodeView()->codeEdit()->insertPlainText("changed ");
    ModalAnswer no("No");
    central.reloadFromDisk();
    QCOMPARE(no.title(), QString("Reload"));
    QCOMPARE(central.currentCodeView()->text(), QString("changed two"));
    ModalAnswer yes("Yes");
    central.reloadFromDisk();
    QCOMPARE(central.currentCodeView()->text(), QString("two"));
}

void TestEdCentralWidget::tabsBecomeSpaces()
{
    EdCentralWidget central;
    central.newMelBuffer();
    EdCodeEdit *edit = central.currentCodeView()->codeEdit();
    edit->setPlainText("\ta\n a\tb\t\nno tab");
    central.convertTabsToSpaces();
    QCOMPARE(edit->text(), QString("    a\n a  b   \nno tab"));
    central.undo();
    QCOMPARE(edit->text(), QString("\ta\n a\tb\t\nno tab"));
}

void TestEdCentralWidget::droppedFilesAreReported()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.newMelBuffer();
    central.show();
    QMimeData data;
    data.setUrls(QList<QUrl>() << QUrl::fromLocalFile(dir.write("a.mel", "x")));
    QSignalSpy dropped(&central, SIGNAL(fileDropped(QString)));
    QWidget *target = central.currentCodeView()->codeEdit()->viewport();
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
    QCOMPARE(int(dropped.size()), 1);
    QCOMPARE(dropped.first().first().toString(), dir.file("a.mel"));
    QCOMPARE(central.currentCodeView()->text(), QString());
}

void TestEdCentralWidget::namesAndCursorAreReported()
{
    EdCentralWidget central;
    QSignalSpy names(&central, SIGNAL(activeBufferNameChanged(QString)));
    central.newPythonBuffer();
    QCOMPARE(names.last().first().toString(), QString("Python"));
    central.replace("ab\ncd");
    QCOMPARE(names.last().first().toString(), QString("Python*"));
    QSignalSpy cursor(&central, SIGNAL(cursorStatusChanged(int, int, int)));
    central.selectAll();
    QCOMPARE(cursor.last(), QList<QVariant>() << 1 << 2 << 5);
}

void TestEdCentralWidget::doubleClickOnNothingAsksForABuffer()
{
    EdCentralWidget central;
    central.show();
    QSignalSpy asked(&central, SIGNAL(createNewBufferTriggered()));
    QTest::mouseDClick(&central, Qt::LeftButton);
    QCOMPARE(int(asked.size()), 1);
}

CORVANE_TEST_MAIN(TestEdCentralWidget)
#include "tst_edcentralwidget.moc"
