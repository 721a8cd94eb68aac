// SPDX-License-Identifier: MIT
// What other programs do to files that are open.
#include "editor/edcodeedit.h"
#include "preferences/preferences.h"
#include "tests/support/datatable.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTextCursor>

#include <memory>

class TestOutsideChanges : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void changesAreAskedAboutOnce_data();
    void changesAreAskedAboutOnce();
    void touchesAskNothing();
    void ownWritesAskNothing();
    void everyReplacementIsSeen();
    void bothPanesAreChecked();
    void missingFilesMayStay_data();
    void missingFilesMayStay();
    void filesThatComeBackAreWatched();
    void nothingIsAskedUnlessWanted();
    void savingAsksFirst();
    void ignoredChangesAreNotOverwrittenUnasked();
    void closingAsksBeforeItWrites_data();
    void closingAsksBeforeItWrites();
    void closingWritesTheCurrentDocumentOnlyAsked();
    void savingAsksAboutWhatIsSavedOnly();
    void savingAllLeavesOutWhatIsCancelled();
    void savingUnderAnOpenNameAsksOnlyAboutLosing();
    void savingInVainUnderAnOpenNameClosesNothing();
    void renamedFilesAreStillAskedAbout();
    void filesThatChangedAndWentAreAskedAboutOnce();

private:
    // What others do; the second waits until it has been noticed.
    void replaceFile(const char *name, const QByteArray &bytes);
    // Gives the pane the focus again, as on coming back from another program.
    void comeBack() { m_central->setActiveTabWidgetIndex(m_central->activePane()); }
    QString text() const { return m_central->currentCodeView()->text(); }

    std::unique_ptr<ScratchDir> m_buffers;
    std::unique_ptr<ScratchDir> m_dir;
    std::unique_ptr<EdCentralWidget> m_central;
};

void TestOutsideChanges::init()
{
    preferences() = Preferences();
    m_buffers = std::make_unique<ScratchDir>();
    m_dir = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_buffers->path()));
    m_central = std::make_unique<EdCentralWidget>();
    m_central->openFile(m_dir->write("a.mel", "one\ntwo\nthree\n"));
}

void TestOutsideChanges::cleanup()
{
    m_central.reset();
    m_dir.reset();
    m_buffers.reset();
}

void TestOutsideChanges::replaceFile(const char *name, const QByteArray &bytes)
{
    m_dir->write("new", bytes);
    QFile::remove(m_dir->file(name));
    QVERIFY(QFile::rename(m_dir->file("new"), m_dir->file(name)));
}

void TestOutsideChanges::changesAreAskedAboutOnce_data()
{
    columns<QString, QString>("button", "text");

    row("yes", "Yes", "one\nTWO\nthree\n");
    row("no", "No", "one\ntwo\nthree\n");
    row("escape", "(no such button)", "one\ntwo\nthree\n");
}

void TestOutsideChanges::changesAreAskedAboutOnce()
{
    QFETCH(QString, button);
    QFETCH(QString, text);
    m_dir->write("a.mel", "one\nTWO\nthree\n");
    ModalAnswer answer(button);
    comeBack();
    QCOMPARE(answer.title(), QString("Reload"));
    QCOMPARE(answer.text(), m_dir->file("a.mel") +
                                "\n\nThis file has been modified by another program.\n"
                                "Do you want to reload it?");
    QCOMPARE(this->text(), text);
    ModalAnswer again("Yes");
    comeBack();
    QTest::qWait(50);
    comeBack();
    QVERIFY(!again.wasAsked());
    if (button == "Yes") {
        m_central->undo();
        QCOMPARE(this->text(), QString("one\ntwo\nthree\n"));
        QVERIFY(m_central->currentCodeView()->isModified());
    }
}

void TestOutsideChanges::touchesAskNothing()
{
    ModalAnswer answer("Yes");
    replaceFile("a.mel", "one\ntwo\nthree\n");
    QTest::qWait(50);
    comeBack();
    m_central->externalFileChange(m_dir->file("a.mel"));
    m_central->checkForFileChanges();
    QVERIFY(!answer.wasAsked());
}

void TestOutsideChanges::ownWritesAskNothing()
{
    ModalAnswer answer("Yes");
    for (int i = 0; i < 3; ++i) {
        m_central->replace("more\n");
        m_central->save();
        QTest::qWait(50);
        comeBack();
    }
    m_central->saveAs(m_dir->file("b.mel"));
    QTest::qWait(50);
    comeBack();
    QVERIFY(!answer.wasAsked());
}

void TestOutsideChanges::everyReplacementIsSeen()
{
    for (const char *bytes : {"second\n", "third\n", "fourth\n"}) {
        replaceFile("a.mel", bytes);
        QTest::qWait(50);
        ModalAnswer answer("Yes");
        comeBack();
        QVERIFY(answer.wasAsked());
        QCOMPARE(text(), QString(bytes));
    }
}

// The pane that is not active as well.
void TestOutsideChanges::bothPanesAreChecked()
{
    m_central->openFile(m_dir->write("b.mel", "b"));
    m_central->moveToOtherView(0, 1);
    QCOMPARE(m_central->activePane(), 1);
    replaceFile("a.mel", "new a");
    replaceFile("b.mel", "new b");
    QTest::qWait(50);
    ModalAnswer answer("Yes");
    answer.thenPress("Yes");
    comeBack();
    QCOMPARE(m_central->pane(0)->codeViewAt(0)->text(), QString("new a"));
    QCOMPARE(m_central->pane(1)->codeViewAt(0)->text(), QString("new b"));
}

void TestOutsideChanges::missingFilesMayStay_data()
{
    columns<QString, bool>("button", "stays");

    row("yes", "Yes", true);
    row("escape", "(no such button)", true);
    row("no", "No", false);
}

void TestOutsideChanges::missingFilesMayStay()
{
    QFETCH(QString, button);
    QFETCH(bool, stays);
    QVERIFY(QFile::remove(m_dir->file("a.mel")));
    QTest::qWait(50);
    ModalAnswer answer(button);
    comeBack();
    QCOMPARE(answer.title(), QString("File Does Not Exist"));
    QCOMPARE(answer.text(), "The file " + m_dir->file("a.mel") +
                                " doesn't exist anymore.\nKeep this file in the editor?");
    QCOMPARE(m_central->currentCodeView() != nullptr, stays);
    if (!stays)
        return;
    QVERIFY(m_central->currentCodeView()->isModified());
    ModalAnswer again("No");
    comeBack();
    QVERIFY(!again.wasAsked());
    m_central->save();
    QCOMPARE(m_dir->read("a.mel"), QByteArray("one\ntwo\nthree\n"));
}

void TestOutsideChanges::filesThatComeBackAreWatched()
{
    QVERIFY(QFile::remove(m_dir->file("a.mel")));
    QTest::qWait(50);
    {
        ModalAnswer answer("Yes");
        comeBack();
        QVERIFY(answer.wasAsked());
    }
    m_dir->write("a.mel", "back");
    QTest::qWait(50);
    ModalAnswer answer("Yes");
    comeBack();
    QVERIFY(answer.wasAsked());
    QCOMPARE(text(), QString("back"));
}

void TestOutsideChanges::nothingIsAskedUnlessWanted()
{
    preferences().checkForModifiedFiles = false;
    ModalAnswer answer("Yes");
    m_dir->write("a.mel", "new");
    QTest::qWait(50);
    comeBack();
    QVERIFY(!answer.wasAsked());
}

void TestOutsideChanges::savingAsksFirst()
{
    m_central->replace("mine ");
    m_dir->write("a.mel", "theirs"); // of which no notice has come yet
    {
        ModalAnswer answer("(no such button)");
        m_central->saveAll();
        QCOMPARE(answer.title(), QString("Save"));
        QCOMPARE(answer.text(), m_dir->file("a.mel") +
                                    "\n\nThis file has been modified by another program.\n"
                                    "Do you want to overwrite it?");
        QCOMPARE(answer.defaultButton(), QString("Cancel"));
        QVERIFY(m_central->currentCodeView()->isModified());
    }
    ModalAnswer answer("Reload");
    m_central->saveAll();
    QVERIFY(answer.wasAsked());
    QCOMPARE(m_dir->read("a.mel"), QByteArray("theirs"));
    m_central->undo();
    QCOMPARE(text(), QString("mine one\ntwo\nthree\n"));
}

void TestOutsideChanges::ignoredChangesAreNotOverwrittenUnasked()
{
    m_dir->write("a.mel", "theirs");
    {
        ModalAnswer answer("No");
        comeBack();
    }
    m_central->replace("mine ");
    {
        ModalAnswer answer("Cancel");
        m_central->save();
        QCOMPARE(answer.title(), QString("Save"));
        QCOMPARE(m_dir->read("a.mel"), QByteArray("theirs"));
    }
    {
        ModalAnswer again("Yes");
        comeBack();
        QVERIFY(!again.wasAsked());
    }
    ModalAnswer answer("Overwrite");
    m_central->save();
    QVERIFY(answer.wasAsked());
    QCOMPARE(m_dir->read("a.mel"), QByteArray("mine one\ntwo\nthree\n"));
}

void TestOutsideChanges::closingAsksBeforeItWrites_data()
{
    columns<QString, QString>("way", "choice");

    for (const char *way : {"tab", "command", "pane"}) {
        row(QByteArray(way).append("-reloads").constData(), way, "Reload");
        row(QByteArray(way).append("-overwrites").constData(), way, "Overwrite");
        row(QByteArray(way).append("-cancels").constData(), way, "Cancel");
    }
}

// Only in an open document can what the user had typed be got back.
void TestOutsideChanges::closingAsksBeforeItWrites()
{
    QFETCH(QString, way);
    QFETCH(QString, choice);
    m_central->replace("mine ");
    m_dir->write("a.mel", "theirs");
    ModalAnswer answer("Yes");
    answer.thenPress(choice);
    if (way == "tab")
        m_central->pane(0)->closeTab(0);
    else if (way == "command")
        m_central->closeActive();
    else
        QCOMPARE(m_central->pane(0)->promptAllUnsaved(true), choice == "Overwrite");
    QVERIFY(answer.text().contains("overwrite it?"));
    if (choice == "Overwrite") {
        QCOMPARE(m_dir->read("a.mel"), QByteArray("mine one\ntwo\nthree\n"));
        QCOMPARE(m_central->pane(0)->count(), way == "pane" ? 1 : 0);
        return;
    }
    QCOMPARE(m_dir->read("a.mel"), QByteArray("theirs"));
    if (choice == "Reload")
        m_central->undo();
    QCOMPARE(text(), QString("mine one\ntwo\nthree\n"));
    QVERIFY(m_central->currentCodeView()->isModified());
}

void TestOutsideChanges::closingWritesTheCurrentDocumentOnlyAsked()
{
    m_central->openFile(m_dir->write("b.mel", "b"));
    m_central->replace("mine ");
    m_central->openFile(m_dir->file("a.mel"));
    m_central->replace("mine ");
    m_dir->write("a.mel", "theirs");
    ModalAnswer answer("Yes");
    answer.thenPress("Reload");
    m_central->pane(0)->closeTab(1);
    QVERIFY(answer.text().contains("overwrite it?"));
    QCOMPARE(m_dir->read("b.mel"), QByteArray("mine b"));
    QCOMPARE(m_dir->read("a.mel"), QByteArray("theirs"));
    QCOMPARE(m_central->codeViews().size(), 1);
    QCOMPARE(text(), QString("theirs"));
}

void TestOutsideChanges::savingAsksAboutWhatIsSavedOnly()
{
    m_central->openFile(m_dir->write("b.mel", "b"));
    m_central->openFile(m_dir->file("a.mel"));
    m_central->replace("mine ");
    for (const char *name : {"a.mel", "b.mel"}) {
        m_dir->write(name, "theirs");
        m_central->externalFileChange(m_dir->file(name));
    }
    ModalAnswer answer("Overwrite");
    answer.thenPress("Yes");
    m_central->save();
    QCOMPARE(answer.text().section('\n', 0, 0), m_dir->file("a.mel"));
    QCOMPARE(m_dir->read("a.mel"), QByteArray("mine one\ntwo\nthree\n"));
    QCOMPARE(m_central->pane(0)->codeViewAt(1)->text(), QString("b"));
}

void TestOutsideChanges::savingAllLeavesOutWhatIsCancelled()
{
    m_central->replace("mine ");
    m_central->openFile(m_dir->write("b.mel", "b"));
    m_central->replace("mine ");
    m_dir->write("a.mel", "theirs");
    ModalAnswer answer("Cancel");
    QVERIFY(m_central->saveAll() == SaveResult::Cancelled);
    QCOMPARE(m_dir->read("a.mel"), QByteArray("theirs"));
    QCOMPARE(m_dir->read("b.mel"), QByteArray("mine b"));
}

void TestOutsideChanges::savingUnderAnOpenNameAsksOnlyAboutLosing()
{
    m_central->replace("lost ");
    m_central->openFile(m_dir->write("b.mel", "b"));
    for (const char *button : {"No", "Yes"}) {
        QCOMPARE(m_central->codeViews().size(), 2);
        ModalAnswer answer(button);
        m_central->saveAs(m_dir->file("a.mel"));
        QVERIFY(answer.text().startsWith("a.mel is open and has unsaved changes"));
        QCOMPARE(answer.defaultButton(), QString("No"));
    }
    QCOMPARE(m_dir->read("a.mel"), QByteArray("b"));
    QCOMPARE(m_central->codeViews().size(), 1);
}

void TestOutsideChanges::savingInVainUnderAnOpenNameClosesNothing()
{
    m_central->replace("kept ");
    m_central->openFile(m_dir->write("b.mel", "\xe9"));
    m_central->replace(QString(QChar(0x4e00)));
    ModalAnswer answer("Yes");
    answer.thenPress("No"); // to UTF-8
    m_central->saveAs(m_dir->file("a.mel"));
    QCOMPARE(m_dir->read("a.mel"), QByteArray("one\ntwo\nthree\n"));
    QCOMPARE(m_central->codeViews().size(), 2);
    QCOMPARE(m_central->pane(0)->codeViewAt(0)->text(), QString("kept one\ntwo\nthree\n"));
}

void TestOutsideChanges::renamedFilesAreStillAskedAbout()
{
    m_dir->write("a.mel", "theirs");
    m_central->currentCodeView()->rename("b.mel");
    ModalAnswer answer("Yes");
    comeBack();
    QVERIFY(answer.wasAsked());
    QCOMPARE(text(), QString("theirs"));
}

void TestOutsideChanges::filesThatChangedAndWentAreAskedAboutOnce()
{
    m_central->externalFileChange(m_dir->file("a.mel"));
    QVERIFY(QFile::remove(m_dir->file("a.mel")));
    m_central->externalFileChange(m_dir->file("a.mel"));
    ModalAnswer answer("Yes");
    answer.thenPress("No"); // which would close it
    comeBack();
    QVERIFY(m_central->currentCodeView() != nullptr);
}

CORVANE_TEST_MAIN(TestOutsideChanges)
#include "tst_outsidechanges.moc"
