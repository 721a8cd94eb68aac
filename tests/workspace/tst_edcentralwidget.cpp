// SPDX-License-Identifier: MIT
#include "analysis/melparser.h"
#include "preferences/preferences.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/scriptdetails.h"
#include "editor/edcodeedit.h"
#include "tests/support/datatable.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>

#include <memory>

class TestEdCentralWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_buffers.reset(); }

    void theSuffixDecidesTheLanguage_data();
    void theSuffixDecidesTheLanguage();
    void changesAreNeverLostUnasked_data();
    void changesAreNeverLostUnasked();
    void anOpenFileIsOnlyShown();
    void theOpenFileIsKnownByItsOtherNames();
    void unreadableFilesLeaveTheDocument();
    void savingAsMovesTheDocument();
    void renamingMovesTheFile();
    void documentsFollowRenamedFolders();
    void renamingNeverOverwrites();
    void reloadingAsksWhenModified();
    void namesAndCursorAreReported();
    void diagnosticsFollowTheText();
    void switchingTabsParsesNothingAgain();
    void doubleClickOnNothingAsksForABuffer();
    void closingABufferDeletesIt_data();
    void closingABufferDeletesIt();
    void openingShowsTheTabInWhicheverPane();
    void tabsMoveToTheOtherPane();
    void theOtherPaneTakesOver();
    void closingAllAsksBeforeTheFirst();
    void closingAllButOneKeepsIt();
    void savingOverAnOpenDocumentClosesIt();
    void failedSavingAsKeepsTheLists();
    void everyReportComesOnce();

private:
    QStringList bufferFiles() const;

    std::unique_ptr<ScratchDir> m_buffers;
};

void TestEdCentralWidget::init()
{
    preferences() = Preferences();
    m_buffers = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_buffers->path()));
}

QStringList TestEdCentralWidget::bufferFiles() const
{
    return QDir(m_buffers->path()).entryList(QDir::Files | QDir::Hidden);
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

void TestEdCentralWidget::changesAreNeverLostUnasked_data()
{
    columns<QString, bool, QString>("button", "closed", "file");

    row("save", "Yes", true, "new old");
    row("discard", "No", true, "old");
    row("cancel", "Cancel", false, "old");
    row("escape", "(no such button)", false, "old");
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
    central.closeActive();
    QCOMPARE(answer.title(), QString("Save"));
    QCOMPARE(answer.text(), QString("'a.mel' has been modified. Save changes?"));
    QCOMPARE(int(fileClosed.size()), closed ? 1 : 0);
    QCOMPARE(central.currentCodeView() == nullptr, closed);
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
    central.save();
    QCOMPARE(dir.read("new/a.mel"), QByteArray("new x"));
    QVERIFY(!QFile::exists(dir.file("old")));
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

void TestEdCentralWidget::closingABufferDeletesIt_data()
{
    columns<QString, bool, QString, bool, bool>("text", "confirm", "button", "asked", "closed");

    row("yes", "x", true, "Yes", true, true);
    row("no", "x", true, "No", true, false);
    row("escape", "x", true, "(no such button)", true, false);
    row("not-wanted", "x", false, "No", false, true);
    row("empty", "", true, "No", false, true);
}

void TestEdCentralWidget::closingABufferDeletesIt()
{
    QFETCH(QString, text);
    QFETCH(bool, confirm);
    QFETCH(QString, button);
    QFETCH(bool, asked);
    QFETCH(bool, closed);
    preferences().confirmCloseTemporaryBuffer = confirm;
    EdCentralWidget central;
    central.newMelBuffer();
    central.replace(text);
    central.saveBuffers();
    QSignalSpy deleted(&central, SIGNAL(bufferDeleted(int)));
    ModalAnswer answer(button);
    central.closeActive();
    QCOMPARE(answer.wasAsked(), asked);
    if (asked) {
        QCOMPARE(answer.title(), QString("Delete"));
        QCOMPARE(answer.text(), QString("Delete buffer 'MEL'?\n\nUnsaved contents will be lost."));
    }
    QCOMPARE(int(deleted.size()), closed ? 1 : 0);
    QCOMPARE(bufferFiles().isEmpty(), closed);
    QCOMPARE(central.currentCodeView() == nullptr, closed);
}

// Files of the scratch directory, opened in the order of their names.
static void openFiles(EdCentralWidget *central, ScratchDir *dir, int count)
{
    for (int i = 0; i < count; ++i) {
        const QByteArray name = QByteArray(1, char('a' + i)) + ".mel";
        central->openFile(dir->write(name.constData(), name));
    }
}

static QString names(const EdCodeTabWidget *pane)
{
    QStringList names;
    for (const EdCodeView *view : pane->codeViews())
        names << view->fileInfo().fileName();
    return names.join(" ");
}

static QString currentName(const EdCentralWidget &central)
{
    const EdCodeView *view = central.currentCodeView();
    return view ? view->fileInfo().fileName() : QString();
}

void TestEdCentralWidget::openingShowsTheTabInWhicheverPane()
{
    ScratchDir dir;
    EdCentralWidget central;
    openFiles(&central, &dir, 3);
    central.moveToOtherView(0, 2);
    QCOMPARE(central.activePane(), 1);
    central.openFile(dir.file("a.mel"));
    QCOMPARE(central.activePane(), 0);
    QCOMPARE(currentName(central), QString("a.mel"));
    central.openFile(dir.file("c.mel"));
    QCOMPARE(central.activePane(), 1);
    central.focusBuffer(7);
    central.closeBuffer(7);
    central.closeFile("/not/open");
    QCOMPARE(currentName(central), QString("c.mel"));
    QCOMPARE(int(central.codeViews().size()), 3);
}

void TestEdCentralWidget::tabsMoveToTheOtherPane()
{
    ScratchDir dir;
    EdCentralWidget central;
    openFiles(&central, &dir, 2);
    central.newPythonBuffer();
    central.replace("x = 1");
    EdCodeView *moved = central.currentCodeView();
    QSignalSpy closed(&central, SIGNAL(fileClosed(QString)));
    QSignalSpy deleted(&central, SIGNAL(bufferDeleted(int)));
    central.moveToOtherView(0, 2);
    QCOMPARE(names(central.pane(0)), QString("a.mel b.mel"));
    QCOMPARE(central.currentCodeView(), moved);
    QCOMPARE(moved->text(), QString("x = 1"));
    QCOMPARE(central.pane(1)->tabText(0), QString("Python"));
    QCOMPARE(int(closed.size() + deleted.size()), 0);
    moved->codeEdit()->undo();
    QCOMPARE(moved->text(), QString());
    central.moveToOtherView(1, 0);
    QCOMPARE(central.activePane(), 0);
    QCOMPARE(int(central.pane(1)->count()), 0);
    QVERIFY(central.pane(1)->isHidden());
    QCOMPARE(int(central.codeViews().size()), 3);
}

void TestEdCentralWidget::theOtherPaneTakesOver()
{
    ScratchDir dir;
    EdCentralWidget central;
    openFiles(&central, &dir, 2);
    central.moveToOtherView(0, 1);
    QSignalSpy name(&central, SIGNAL(activeBufferNameChanged(QString)));
    central.closeActive();
    QCOMPARE(central.activePane(), 0);
    QCOMPARE(name.last().first().toString(), dir.file("a.mel"));
    central.closeActive();
    QCOMPARE(name.last().first().toString(), QString());
    QVERIFY(!central.currentCodeView());
    central.newBuffer();
    QVERIFY(central.currentCodeView());
}

void TestEdCentralWidget::closingAllAsksBeforeTheFirst()
{
    ScratchDir dir;
    EdCentralWidget central;
    openFiles(&central, &dir, 3);
    central.moveToOtherView(0, 1);
    central.replace("changed ");
    ModalAnswer cancel("Cancel");
    central.closeAll();
    QCOMPARE(cancel.text(), QString("'b.mel' has been modified. Save changes?"));
    QCOMPARE(int(central.codeViews().size()), 3);
    ModalAnswer yes("Yes");
    central.closeAll();
    QCOMPARE(int(central.codeViews().size()), 0);
    QCOMPARE(dir.read("b.mel"), QByteArray("changed b.mel"));
}

void TestEdCentralWidget::closingAllButOneKeepsIt()
{
    ScratchDir dir;
    EdCentralWidget central;
    openFiles(&central, &dir, 4);
    central.moveToOtherView(0, 3);
    central.openFile(dir.file("b.mel"));
    central.replace("kept ");
    ModalAnswer unexpected("Cancel"); // what stays needs no question
    central.closeAllButCurrent();
    QVERIFY(!unexpected.wasAsked());
    QCOMPARE(int(central.codeViews().size()), 1);
    QCOMPARE(central.currentCodeView()->text(), QString("kept b.mel"));
}

void TestEdCentralWidget::savingOverAnOpenDocumentClosesIt()
{
    ScratchDir dir;
    EdCentralWidget central;
    openFiles(&central, &dir, 2);
    central.replace("b's ");
    central.openFile(dir.file("a.mel"));
    ModalAnswer cancel("Cancel");
    central.saveAs(dir.file("b.mel"));
    QVERIFY(cancel.wasAsked());
    QCOMPARE(dir.read("b.mel"), QByteArray("b.mel"));
    QCOMPARE(currentName(central), QString("a.mel"));
    central.replace("a's ");
    ModalAnswer save("Yes"); // of the other one alone
    central.saveAs(dir.file("b.mel"));
    QCOMPARE(dir.read("a.mel"), QByteArray("a.mel"));
    QCOMPARE(dir.read("b.mel"), QByteArray("a's a.mel"));
    QCOMPARE(names(central.pane(0)), QString("b.mel"));
}

// A list that follows the reports, as the docks do.
class Follower : public QObject
{
    Q_OBJECT

public:
    explicit Follower(EdCentralWidget *central)
    {
        connect(central, SIGNAL(fileOpened(QString)), SLOT(add(QString)));
        connect(central, SIGNAL(fileClosed(QString)), SLOT(remove(QString)));
    }

    QStringList paths;

private slots:
    void add(const QString &path) { paths << path; }
    void remove(const QString &path) { paths.removeOne(path); }
};

void TestEdCentralWidget::failedSavingAsKeepsTheLists()
{
    ScratchDir dir;
    EdCentralWidget central;
    Follower follower(&central);
    openFiles(&central, &dir, 1);
    ModalAnswer ok("OK");
    central.saveAs(dir.file("no/such/folder/b.mel"));
    QVERIFY(ok.wasAsked());
    QCOMPARE(follower.paths, QStringList(dir.file("a.mel")));
    QVERIFY(central.currentCodeView()->isModified());
}

void TestEdCentralWidget::everyReportComesOnce()
{
    ScratchDir dir;
    EdCentralWidget central;
    openFiles(&central, &dir, 1);
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
