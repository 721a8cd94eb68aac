// SPDX-License-Identifier: MIT
#include "workspace/edcodeview.h"

#include "editor/edcodeedit.h"
#include "preferences/preferences.h"
#include "tests/support/datatable.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"

#include <QApplication>
#include <QFile>
#include <QSignalSpy>

#include <memory>

namespace {

QByteArray bytesOf(const EdCodeView &view)
{
    QFile file(view.fileInfo().absoluteFilePath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

} // namespace

class TestEdCodeView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_dir.reset(); }

    void newBuffersHaveAFile_data();
    void newBuffersHaveAFile();
    void bufferFilesTakeTheFirstFreeName();
    void theLastNameIsShared();
    void savingWritesOnlyChanges();
    void savingUnderANewNameDeletesTheBufferFile();
    void savingABufferAsItsOwnFileKeepsIt();
    void savingFilesDeletesNothing();
    void writingIsAlwaysReported();
    void failedWritesChangeNothing_data();
    void failedWritesChangeNothing();
    void anotherEncodingIsOffered();
    void buffersHoldHalvesOfCharacters();
    void buffersWithoutADirectoryStayModified();
    void failedReadsKeepTheText();
    void scrolledDocumentsAreLoadedAgain();
    void loadingABufferKeepsItOne();
    void bytesSurviveEditingAndUndo();
    void renamingKeepsChangesUnsaved();
    void onlyNamesAreRenamedTo();
    void languagesBringTheirIndentation();
    void signalsOfTheEditorAreRelayed_data();
    void signalsOfTheEditorAreRelayed();

private:
    EdCodeView *newFile(const char *name, const QByteArray &bytes);

    std::unique_ptr<ScratchDir> m_dir;
    std::unique_ptr<EdCodeView> m_view;
};

void TestEdCodeView::init()
{
    preferences() = Preferences();
    m_view.reset();
    m_dir = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_dir->path()));
}

EdCodeView *TestEdCodeView::newFile(const char *name, const QByteArray &bytes)
{
    m_view = std::make_unique<EdCodeView>(EdCodeView::AwaitsFile, EdCodeView::Text);
    return m_view->load(QFileInfo(m_dir->write(name, bytes)), false, -1) ? m_view.get() : nullptr;
}

void TestEdCodeView::newBuffersHaveAFile_data()
{
    columns<int, QString>("language", "name");

    row("text", int(EdCodeView::Text), "corvaneEditorBuffer-0.txt");
    row("python", int(EdCodeView::Python), "corvaneEditorBuffer-0.py");
    row("mel", int(EdCodeView::Mel), "corvaneEditorBuffer-0.mel");
    row("unknown", 7, "corvaneEditorBuffer-0.txt");
}

void TestEdCodeView::newBuffersHaveAFile()
{
    QFETCH(int, language);
    QFETCH(QString, name);
    const EdCodeView view(3, language);
    QCOMPARE(view.fileInfo().absoluteFilePath(), m_dir->path() + "/" + name);
    QCOMPARE(bytesOf(view), QByteArray());
    QVERIFY(view.isBuffer());
    QCOMPARE(view.bufferIndex(), 3);
    QCOMPARE(view.language(), language == 7 ? 0 : language);
    QVERIFY(!view.isModified());
}

void TestEdCodeView::bufferFilesTakeTheFirstFreeName()
{
    EdCodeView first(0, EdCodeView::Mel);
    const EdCodeView second(1, EdCodeView::Mel);
    QCOMPARE(second.fileInfo().fileName(), QString("corvaneEditorBuffer-1.mel"));
    first.removeBufferFile();
    QVERIFY(!first.fileInfo().exists());
    const EdCodeView third(2, EdCodeView::Mel);
    QCOMPARE(third.fileInfo().fileName(), QString("corvaneEditorBuffer-0.mel"));
}

void TestEdCodeView::theLastNameIsShared()
{
    for (int number = 0; number < 100; ++number)
        m_dir->write(qPrintable(QString("corvaneEditorBuffer-%1.py").arg(number)), "kept");
    EdCodeView view(0, EdCodeView::Python);
    QCOMPARE(view.fileInfo().fileName(), QString("corvaneEditorBuffer-99.py"));
    QCOMPARE(bytesOf(view), QByteArray("kept"));
    QVERIFY(view.isModified());
    view.save();
    QCOMPARE(bytesOf(view), QByteArray());
}

void TestEdCodeView::savingWritesOnlyChanges()
{
    EdCodeView view(0, EdCodeView::Mel);
    view.replace("print 1;");
    view.save();
    QCOMPARE(bytesOf(view), QByteArray("print 1;"));
    QVERIFY(view.isBuffer());
    QVERIFY(!view.isModified());
    QVERIFY(QFile::remove(view.fileInfo().absoluteFilePath()));
    view.save();
    QVERIFY(!QFile::exists(view.fileInfo().absoluteFilePath()));
    view.forceModified();
    view.save();
    QCOMPARE(bytesOf(view), QByteArray("print 1;"));
}

void TestEdCodeView::savingUnderANewNameDeletesTheBufferFile()
{
    EdCodeView view(0, EdCodeView::Mel);
    const QString bufferFile = view.fileInfo().absoluteFilePath();
    view.replace("x = 1");
    view.saveAs(m_dir->file("a.py"));
    QVERIFY(!QFile::exists(bufferFile));
    QCOMPARE(m_dir->read("a.py"), QByteArray("x = 1"));
    QVERIFY(!view.isBuffer());
    QCOMPARE(view.bufferIndex(), -1);
    QCOMPARE(view.fileInfo().absoluteFilePath(), m_dir->file("a.py"));
    QCOMPARE(view.language(), int(EdCodeView::Python));
}

void TestEdCodeView::savingABufferAsItsOwnFileKeepsIt()
{
    EdCodeView view(0, EdCodeView::Mel);
    view.replace("kept");
    view.saveAs(view.fileInfo().absolutePath() + "/./" + view.fileInfo().fileName());
    QVERIFY(!view.isBuffer());
    QCOMPARE(bytesOf(view), QByteArray("kept"));
}

void TestEdCodeView::savingFilesDeletesNothing()
{
    EdCodeView *view = newFile("a.mel", "old");
    QVERIFY(view->write(m_dir->file("b.mel"), false));
    QCOMPARE(m_dir->read("a.mel"), QByteArray("old"));
    view->removeBufferFile();
    QCOMPARE(m_dir->read("b.mel"), QByteArray("old"));
    QVERIFY(!view->write(QString(), false));
    QVERIFY(!view->isModified());
}

void TestEdCodeView::writingIsAlwaysReported()
{
    EdCodeView *view = newFile("a.mel", "old");
    QSignalSpy changed(view, SIGNAL(modificationChanged(bool)));
    QVERIFY(view->write(m_dir->file("a.mel"), false));
    QCOMPARE(int(changed.size()), 2);
    QCOMPARE(changed.last().first().toBool(), false);
}

void TestEdCodeView::failedWritesChangeNothing_data()
{
    columns<QString, QString, QString>("text", "target", "reason");

    row("folder", "new", "folder", "This is not a regular file");
    row("half-character", QString(QChar(0xD83D)), "b.mel",
        "Line 1 has the character U+D83D, which is not in UTF-8");
}

void TestEdCodeView::failedWritesChangeNothing()
{
    QFETCH(QString, text);
    QFETCH(QString, target);
    QFETCH(QString, reason);
    QVERIFY(QDir(m_dir->path()).mkdir("folder"));
    EdCodeView *view = newFile("a.mel", "old");
    view->replace(text);
    const QString path = m_dir->path() + "/" + target;
    ModalAnswer answer("OK");
    QVERIFY(!view->write(path, false));
    QCOMPARE(answer.title(), QString("Error"));
    QCOMPARE(answer.text(), QString("Cannot write file %1:\n%2.").arg(path, reason));
    QVERIFY(view->isModified());
    QCOMPARE(view->fileInfo().fileName(), QString("a.mel"));
    QCOMPARE(m_dir->read("a.mel"), QByteArray("old"));
    QVERIFY(!QApplication::overrideCursor());
}

void TestEdCodeView::anotherEncodingIsOffered()
{
    EdCodeView *view = newFile("a.mel", "caf\xE9");
    view->replace(QString::fromUtf8("\xE2\x82\xAC "));
    for (const char *button : {"(no such button)", "No", "Yes"}) {
        QCOMPARE(m_dir->read("a.mel"), QByteArray("caf\xE9"));
        ModalAnswer answer(button);
        view->save();
        QCOMPARE(answer.text(),
                 QString::fromUtf8("The encoding of this file, ISO 8859-1, cannot hold "
                                   "'\xE2\x82\xAC' (U+20AC) (line 1). Save as UTF-8 instead?"));
    }
    view->forceModified();
    ModalAnswer again("No");
    view->save();
    QVERIFY(!again.wasAsked() && !view->isModified());
    QCOMPARE(m_dir->read("a.mel"), QByteArray("\xE2\x82\xAC caf\xC3\xA9"));
}

void TestEdCodeView::buffersHoldHalvesOfCharacters()
{
    EdCodeView view(0, EdCodeView::Mel);
    const QString text = QString("a") + QChar(0xDE00) + QChar(0xD83D) + "\n";
    view.replace(text);
    ModalAnswer answer("OK");
    view.save();
    QVERIFY(!answer.wasAsked());
    EdCodeView again(EdCodeView::AwaitsFile, EdCodeView::Text);
    QVERIFY(again.load(view.fileInfo(), true, 1));
    QVERIFY(again.text() == text);
    // One that a file's encoding does not hold either.
    const QString latin = m_dir->write("corvaneEditorBuffer-7.mel", "caf\xE9");
    QVERIFY(again.load(QFileInfo(latin), true, 1));
    again.replace(QString::fromUtf8("\xE2\x82\xAC"));
    again.save();
    QVERIFY(!answer.wasAsked());
    QCOMPARE(bytesOf(again), QByteArray("\xE2\x82\xAC"
                                        "caf\xC3\xA9"));
}

void TestEdCodeView::buffersWithoutADirectoryStayModified()
{
    EdCodeView::setBufferDirectory(QDir(m_dir->file("missing")));
    ModalAnswer answer("OK");
    EdCodeView view(0, EdCodeView::Mel);
    QCOMPARE(answer.title(), QString("Error"));
    QVERIFY(view.isModified());
    QVERIFY(view.isBuffer());
    QVERIFY(QDir(m_dir->path()).mkdir("missing"));
    view.replace("x");
    view.save();
    QCOMPARE(bytesOf(view), QByteArray("x"));
}

void TestEdCodeView::failedReadsKeepTheText()
{
    EdCodeView view(4, EdCodeView::Mel);
    view.replace("kept");
    ModalAnswer answer("OK");
    QVERIFY(!view.load(QFileInfo(m_dir->path()), false, -1));
    QCOMPARE(answer.title(), QString("File Read Error"));
    QCOMPARE(answer.text(), QString("Cannot read file %1:\nThis is a folder.").arg(m_dir->path()));
    QCOMPARE(view.text(), QString("kept"));
    QVERIFY(!view.isBuffer());
    QCOMPARE(view.bufferIndex(), -1);
}

// The view scrolls and its gutter narrows while the old text goes.
void TestEdCodeView::scrolledDocumentsAreLoadedAgain()
{
    EdCodeView *view = newFile("a.mel", QByteArray("print 1;\n").repeated(2000));
    view->resize(300, 200);
    view->show();
    view->goToLine(2000);
    m_dir->write("a.mel", "a");
    QVERIFY(view->load(view->fileInfo(), false, -1));
    view->replace("b");
    QCOMPARE(view->text(), QString("ba"));
    QCOMPARE(int(view->codeEdit()->extraSelections().size()), 1); // the current line
    m_view.reset();
}

void TestEdCodeView::loadingABufferKeepsItOne()
{
    const QString path = m_dir->write("corvaneEditorBuffer-5.py", "x = 1\n");
    EdCodeView view(EdCodeView::AwaitsFile, EdCodeView::Text);
    QVERIFY(view.load(QFileInfo(path), true, 8));
    QVERIFY(view.isBuffer());
    QVERIFY(!view.isModified());
    QCOMPARE(view.bufferIndex(), 8);
    QCOMPARE(view.language(), int(EdCodeView::Python));
    QCOMPARE(view.codeEdit()->textCursor().position(), 0);
    view.removeBufferFile();
    QVERIFY(!QFile::exists(path));
}

void TestEdCodeView::bytesSurviveEditingAndUndo()
{
    const QByteArray bytes("\xFF\xFE"
                           "a\0\r\0\n\0\xA0\0\n\0\n\0"
                           "b\0\x29\x20"
                           "c\0\r\0\r\0\x28\x20",
                           26);
    EdCodeView *view = newFile("a.txt", bytes);
    QVERIFY(view);
    view->setCursorSelection(2, 5);
    QTest::keyClicks(view->codeEdit(), "xy");
    QTest::keyClick(view->codeEdit(), Qt::Key_Return);
    view->clearText();
    while (view->codeEdit()->document()->isUndoAvailable())
        view->undo();
    view->forceModified();
    view->save();
    QCOMPARE(m_dir->read("a.txt").toHex(), bytes.toHex());
}

void TestEdCodeView::renamingKeepsChangesUnsaved()
{
    EdCodeView *view = newFile("a.mel", "old");
    view->rename("b.py");
    QVERIFY(!view->isModified());
    QCOMPARE(view->language(), int(EdCodeView::Python));
    view->replace("new ");
    view->rename("c.mel");
    QVERIFY(view->isModified());
    QCOMPARE(m_dir->read("c.mel"), QByteArray("old"));
    view->save();
    QCOMPARE(m_dir->read("c.mel"), QByteArray("new old"));
    QVERIFY(!QFile::exists(m_dir->file("a.mel")) && !QFile::exists(m_dir->file("b.py")));

    EdCodeView buffer(0, EdCodeView::Mel);
    QSignalSpy renamed(&buffer, SIGNAL(fileRenamed(QString, QString)));
    buffer.rename("d.mel");
    QCOMPARE(int(renamed.size()), 0);
    QVERIFY(buffer.fileInfo().exists());
}

void TestEdCodeView::onlyNamesAreRenamedTo()
{
    EdCodeView *view = newFile("a.mel", "old");
    QVERIFY(QDir(m_dir->path()).mkdir("folder"));
    for (const char *name : {"", "folder/b.mel", "../b.mel", "/b.mel", ".", ".."}) {
        ModalAnswer answer("OK");
        view->rename(name);
        QCOMPARE(answer.title(), QString("Error"));
        QCOMPARE(answer.text(), QString("\"%1\" cannot be the name of a file.").arg(name));
        QCOMPARE(m_dir->read("a.mel"), QByteArray("old"));
    }
}

void TestEdCodeView::languagesBringTheirIndentation()
{
    preferences().pyUseDefaults = false;
    preferences().pyTabSize = 7;
    EdCodeView *view = newFile("a.py", "x");
    QCOMPARE(view->codeEdit()->tabSize(), 7);
    view->saveAs(m_dir->file("a.txt"));
    QCOMPARE(view->codeEdit()->tabSize(), preferences().tabSize);
}

void TestEdCodeView::signalsOfTheEditorAreRelayed_data()
{
    columns<QByteArray, QByteArray>("emitted", "relayed");

    const char *pairs[][2] = {{"gainedFocus()", "gainedFocus()"},
                              {"overwriteModeChanged()", "overwriteModeChanged()"},
                              {"cursorPositionChanged()", "cursorStatusChanged()"},
                              {"selectionChanged()", "cursorStatusChanged()"},
                              {"textChanged()", "textChanged()"},
                              {"moveToOtherViewSelected()", "moveToOtherViewSelected()"},
                              {"previousTabSelected()", "previousTabSelected()"},
                              {"nextTabSelected()", "nextTabSelected()"}};
    for (const auto &pair : pairs)
        row(pair[0], QByteArray(pair[0]), QByteArray(pair[1]));
}

void TestEdCodeView::signalsOfTheEditorAreRelayed()
{
    QFETCH(QByteArray, emitted);
    QFETCH(QByteArray, relayed);
    EdCodeView view(EdCodeView::AwaitsFile, EdCodeView::Text);
    QSignalSpy spy(&view, ("2" + relayed).constData()); // as SIGNAL() writes it
    QVERIFY(
        QMetaObject::invokeMethod(view.codeEdit(), emitted.left(emitted.size() - 2).constData()));
    QCOMPARE(int(spy.size()), 1);
}

CORVANE_TEST_MAIN(TestEdCodeView)
#include "tst_edcodeview.moc"
