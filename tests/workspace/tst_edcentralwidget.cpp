// SPDX-License-Identifier: MIT
#include "preferences/preferences.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"
#include "editor/edcodeedit.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>

#include <memory>

// Saves under a name when that is asked for, as the window does; without one the user cancelled.
class SaverAs : public QObject
{
    Q_OBJECT

public:
    SaverAs(EdCentralWidget *central, const QString &path) : m_central(central), m_path(path)
    {
        connect(central, SIGNAL(tabSaveAsSelected()), SLOT(saveAs()));
    }

private slots:
    void saveAs() { m_central->saveAs(m_path); }

private:
    EdCentralWidget *m_central;
    QString m_path;
};

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
    void filesThatSavingWroteAreOpenedAsWritten();
    void unreadableFilesLeaveTheDocument();
    void savingAsMovesTheDocument();
    void renamingMovesTheFile();
    void renamingNeverOverwrites();
    void reloadingAsksWhenModified();
    void namesAndCursorAreReported();
    void diagnosticsFollowTheText();
    void doubleClickOnNothingAsksForABuffer();
    void closingABufferDeletesIt_data();
    void closingABufferDeletesIt();
    void replacingABufferAsks_data();
    void replacingABufferAsks();

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

void TestEdCentralWidget::filesThatSavingWroteAreOpenedAsWritten()
{
    ScratchDir dir;
    EdCentralWidget central;
    const QString path = dir.write("a.mel", "old");
    SaverAs saver(&central, path);
    central.newMelBuffer();
    central.replace("new");
    ModalAnswer answer("Yes");
    central.openFile(path);
    QVERIFY(answer.wasAsked());
    QCOMPARE(central.currentCodeView()->text(), QString("new"));
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
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("confirm");
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("asked");
    QTest::addColumn<bool>("closed");

    QTest::newRow("yes") << "x" << true << "Yes" << true << true;
    QTest::newRow("no") << "x" << true << "No" << true << false;
    QTest::newRow("escape") << "x" << true << "(no such button)" << true << false;
    QTest::newRow("not-wanted") << "x" << false << "No" << false << true;
    QTest::newRow("empty") << "" << true << "No" << false << true;
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

void TestEdCentralWidget::replacingABufferAsks_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("savesAs");
    QTest::addColumn<bool>("replaced");

    QTest::newRow("save") << "Yes" << true << true;
    QTest::newRow("save-without-a-name") << "Yes" << false << false;
    QTest::newRow("discard") << "No" << false << true;
    QTest::newRow("cancel") << "Cancel" << false << false;
}

// Even when the buffer's own file has all of its text: that goes with the buffer.
void TestEdCentralWidget::replacingABufferAsks()
{
    QFETCH(QString, button);
    QFETCH(bool, savesAs);
    QFETCH(bool, replaced);
    preferences().confirmCloseTemporaryBuffer = false;
    ScratchDir dir;
    EdCentralWidget central;
    SaverAs saver(&central, savesAs ? dir.file("saved.mel") : QString());
    central.newMelBuffer();
    central.replace("kept");
    central.saveBuffers();
    ModalAnswer answer(button);
    central.openFile(dir.write("a.mel", "other"));
    QCOMPARE(answer.title(), QString("Save"));
    QCOMPARE(central.currentCodeView()->text(), QString(replaced ? "other" : "kept"));
    QCOMPARE(bufferFiles().isEmpty(), replaced);
    if (!replaced) {
        central.openFile(m_buffers->file("corvaneEditorBuffer-0.mel")); // its own, so only shown
        QCOMPARE(central.currentCodeView()->text(), QString("kept"));
    }
    QCOMPARE(dir.read("saved.mel"), QByteArray(savesAs ? "kept" : "(no such file)"));
}

CORVANE_TEST_MAIN(TestEdCentralWidget)
#include "tst_edcentralwidget.moc"
