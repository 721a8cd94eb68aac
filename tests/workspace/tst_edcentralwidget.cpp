// SPDX-License-Identifier: MIT
#include "analysis/melparser.h"
#include "preferences/preferences.h"
#include "tests/support/datatable.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/scriptdetails.h"
#include "editor/edcodeedit.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>

#include <memory>

// What documents, files and lists become by each command, in any order, is for the random walk;
// here is what it does not see.
class TestEdCentralWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_buffers.reset(); }

    void theSuffixDecidesTheLanguage_data();
    void theSuffixDecidesTheLanguage();
    void theOpenFileIsKnownByItsOtherNames();
    void whatIsNotOpenCannotBeClosed();
    void thePaneOfAMovedTabIsActive();
    void documentsFollowRenamedFolders();
    void namesAndCursorAreReported();
    void diagnosticsFollowTheText();
    void diagnosticsOfBothPanesFollow();
    void switchingTabsParsesNothingAgain();
    void doubleClickOnNothingAsksForABuffer();
    void everyReportComesOnce();

private:
    std::unique_ptr<ScratchDir> m_buffers;
};

void TestEdCentralWidget::init()
{
    preferences() = Preferences();
    m_buffers = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_buffers->path()));
}

void TestEdCentralWidget::theSuffixDecidesTheLanguage_data()
{
    columns<QString, int>("name", "language");

    row("mel", "a.mel", 2);
    row("py", "a.py", 1);
    row("pyw", "a.b.pyw", 1);
    row("upper-case-is-text", "a.MEL", 0);
    row("no-suffix", "mel", 0);
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

void TestEdCentralWidget::theOpenFileIsKnownByItsOtherNames()
{
    ScratchDir dir;
    EdCentralWidget central;
    const QString path = dir.write("a.mel", "old");
    QVERIFY(QFile::link(path, dir.file("link.mel")));
    central.openFile(path);
    central.replace("new ");
    ModalAnswer answer("Yes");
    central.openFile(dir.file("link.mel"));
    QVERIFY(!answer.wasAsked());
    QCOMPARE(central.currentCodeView()->text(), QString("new old"));
    QCOMPARE(central.currentCodeView()->fileInfo().fileName(), QString("a.mel"));
}

void TestEdCentralWidget::whatIsNotOpenCannotBeClosed()
{
    EdCentralWidget central;
    central.newBuffer();
    central.focusBuffer(7);
    central.closeBuffer(7);
    central.closeFile("/not/open");
    QCOMPARE(int(central.codeViews().size()), 1);
}

// Which does not wait for the focus.
void TestEdCentralWidget::thePaneOfAMovedTabIsActive()
{
    EdCentralWidget central;
    central.newBuffer();
    central.moveToOtherView(0, 0);
    QCOMPARE(central.activePane(), 1);
    central.moveToOtherView(1, 0);
    QCOMPARE(central.activePane(), 0);
}

void TestEdCentralWidget::documentsFollowRenamedFolders()
{
    ScratchDir dir;
    EdCentralWidget central;
    QVERIFY(QDir(dir.path()).mkdir("old"));
    central.openFile(dir.write("old/a.mel", "x"));
    central.openFile(dir.write("older.mel", "y"));
    QVERIFY(QDir(dir.path()).rename("old", "new"));
    central.followRenamed(dir.file("old"), dir.file("new"));
    QVERIFY(QFile::rename(dir.file("older.mel"), dir.file("older.py")));
    central.followRenamed(dir.file("older.mel"), dir.file("older.py"));
    QCOMPARE(central.currentCodeView()->language(), int(EdCodeView::Python));
    central.pane(0)->previousTab();
    central.replace("new ");
    QVERIFY(central.hasUnsavedContent());
    central.save();
    QVERIFY(!central.hasUnsavedContent());
    QCOMPARE(dir.read("new/a.mel"), QByteArray("new x"));
    QVERIFY(!QFile::exists(dir.file("old")));
}

void TestEdCentralWidget::namesAndCursorAreReported()
{
    EdCentralWidget central;
    QSignalSpy names(&central, SIGNAL(activeBufferNameChanged(QString)));
    central.newPythonBuffer();
    QCOMPARE(names.last().first().toString(), QString("Python"));
    central.replace("ab\ncd");
    QCOMPARE(names.last().first().toString(), QString("Python")); // buffers are not marked
    QSignalSpy cursor(&central, SIGNAL(cursorStatusChanged(int, int, int)));
    central.selectAll();
    QCOMPARE(cursor.last(), QList<QVariant>() << 1 << 2 << 5);
}

void TestEdCentralWidget::diagnosticsFollowTheText()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.openFile(dir.write("a.py", "# TODO one\n"));
    EdCodeEdit *edit = central.currentCodeView()->codeEdit();
    QCOMPARE(edit->infoLines().keys(), QList<int>() << 0);
    // After a pause in typing, of 2 seconds.
    edit->moveCursor(QTextCursor::End);
    QTest::keyClicks(edit, "# TODO two");
    QCOMPARE(edit->infoLines().keys(), QList<int>() << 0);
    QElapsedTimer clock;
    clock.start();
    while (edit->infoLines().size() < 2 && clock.elapsed() < 10000)
        QTest::qWait(20);
    QCOMPARE(edit->infoLines().keys(), QList<int>() << 0 << 1);
    QVERIFY(clock.elapsed() > 1500);
    // As plain text it means nothing.
    central.saveAs(dir.file("a.txt"));
    QCOMPARE(edit->infoLines().size(), 0);
}

void TestEdCentralWidget::diagnosticsOfBothPanesFollow()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.show();
    central.openFile(dir.write("a.mel", ""));
    central.openFile(dir.write("b.mel", ""));
    central.moveToOtherView(0, 1);
    EdCodeEdit *edit = central.currentCodeView()->codeEdit();
    QTest::keyClicks(edit, "// TODO");
    central.setActiveTabWidgetIndex(0); // before the pause that it would be parsed after
    for (int i = 0; i < 500 && edit->infoLines().isEmpty(); ++i)
        QTest::qWait(20);
    QCOMPARE(central.activePane(), 0);
    QCOMPARE(edit->infoLines().keys(), QList<int>() << 0);
}

void TestEdCentralWidget::switchingTabsParsesNothingAgain()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.openFile(dir.write("a.mel", "proc a() {}"));
    EdCodeView *view = central.currentCodeView();
    central.newPythonBuffer();
    const int parses = ScriptDetails::of(view).parseCount();
    central.pane(0)->previousTab();
    central.pane(0)->previousTab();
    central.pane(0)->previousTab();
    QCOMPARE(ScriptDetails::of(view).parseCount(), parses);
    view->codeEdit()->insertPlainText("proc b() {}");
    central.activeViewChange();
    QCOMPARE(ScriptDetails::of(view).parseCount(), parses + 1);
}

void TestEdCentralWidget::doubleClickOnNothingAsksForABuffer()
{
    EdCentralWidget central;
    central.show();
    QSignalSpy asked(&central, SIGNAL(createNewBufferTriggered()));
    QTest::mouseDClick(&central, Qt::LeftButton);
    QCOMPARE(int(asked.size()), 1);
}

void TestEdCentralWidget::everyReportComesOnce()
{
    ScratchDir dir;
    EdCentralWidget central;
    central.openFile(dir.write("a.mel", "x"));
    central.newMelBuffer();
    qRegisterMetaType<MelParser>("MelParser");
    QSignalSpy mel(&central, SIGNAL(melScriptUpdated(MelParser)));
    QSignalSpy name(&central, SIGNAL(activeBufferNameChanged(QString)));
    central.pane(0)->setCurrentTab(0);
    QCOMPARE(int(mel.size()), 1);
    QCOMPARE(int(name.size()), 1);
    QSignalSpy mode(&central, SIGNAL(overwriteModeChanged()));
    central.currentCodeView()->codeEdit()->toggleOverwriteMode();
    QCOMPARE(int(mode.size()), 1);
    central.currentCodeView()->codeEdit()->toggleOverwriteMode();
    QSignalSpy created(&central, SIGNAL(bufferCreated(int, QString, QFileInfo)));
    QSignalSpy deleted(&central, SIGNAL(bufferDeleted(int)));
    central.newBuffer();
    central.closeActive();
    QCOMPARE(int(created.size()), 1);
    QCOMPARE(int(deleted.size()), 1);
    QCOMPARE(created.first().first(), deleted.first().first());
}

CORVANE_TEST_MAIN(TestEdCentralWidget)
#include "tst_edcentralwidget.moc"
