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

// More of what documents and files become by commands is for the random walk.
class TestEdCodeView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_dir.reset(); }

    void theLastNameIsShared();
    void savingWritesOnlyChanges();
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
    void bytesSurviveEditingAndUndo();
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

void TestEdCodeView::onlyNamesAreRenamedTo()
{
    EdCodeView buffer(0, 7); // an unknown language is text
    buffer.rename("b.mel");
    QCOMPARE(buffer.fileInfo().fileName(), QString("corvaneEditorBuffer-0.txt"));
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
