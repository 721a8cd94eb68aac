// SPDX-License-Identifier: MIT
#include "workspace/recovery.h"

#include "compat/filesystem.h"
#include "compat/filetree.h"
#include "tests/support/datatable.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "tests/workspace/editorsession.h"

#include <QDir>
#include <QFileInfo>

#include <memory>

namespace {

QStringList namesOf(const Recovery &recovery)
{
    QStringList names;
    for (const RecoveredDocument &document : recovery.documents)
        names << document.name;
    names.sort();
    return names;
}

} // namespace

class TestRecovery : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_session.reset(); }

    void unsavedTextsComeBack();
    void savedAndClosedTextsDoNot();
    void undoLeadsToTheFile();
    void missingFilesKeepTheirKind();
    void renamedFilesAreFollowed();
    void buffersBeyondTheLastNameLoseNothing();
    void movedBuffersKeepTheirTexts();
    void severalSessionsLoseNothing();
    void theLatestOfOneSessionIsTheFiles();
    void filesChangedSinceAreNotOverwritten();
    void filesOfTwoNamesAreOneDocument();
    void mixedLineEndsStayWhereTheyWere();
    void anEndingWindowStopsNoOther();
    void foldersAreMadeAgain();
    void nothingIsDoubledByAnotherCrash();
    void foreignFilesNeverBecomeBuffers();
    void damagedJournalsAreReported();

private:
    // The old one ends with its texts unsaved, as the host's end leaves them.
    EditorSession &restart()
    {
        m_session.reset();
        m_session = std::make_unique<EditorSession>(m_dir->path());
        return *m_session;
    }
    QStringList journals() const
    {
        QStringList names;
        const QDir root(m_dir->file("journal"));
        for (const QString &session : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            names << QDir(root.filePath(session)).entryList(QStringList("*.journal*"));
        return names;
    }

    std::unique_ptr<ScratchDir> m_dir;
    std::unique_ptr<EditorSession> m_session;
};

void TestRecovery::init()
{
    m_dir = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_dir->path()));
}

void TestRecovery::unsavedTextsComeBack()
{
    const QString file = m_dir->write("a.mel", "one\ntwo\n");
    QString buffer;
    {
        EditorSession &session = restart();
        session.open(file)->replace("new ");
        session.newBuffer("Scratch")->replace("scratch\n");
        buffer = session.codeViews().last()->fileInfo().absoluteFilePath();
    }
    for (int crash = 0; crash < 2; ++crash) {
        EditorSession &session = restart();
        EdCodeView *view = session.open(file);
        session.open(buffer, true);
        const Recovery recovery = session.recover();
        QCOMPARE(namesOf(recovery), words("a.mel corvaneEditorBuffer-0.mel"));
        QVERIFY(recovery.problems.isEmpty());
        QCOMPARE(int(session.codeViews().size()), 2);
        QCOMPARE(view->text(), QString("new one\ntwo\n"));
        QVERIFY(view->isModified());
        QCOMPARE(session.codeViews().last()->text(), QString("scratch\n"));
    }
    QCOMPARE(m_dir->read("a.mel"), QByteArray("one\ntwo\n"));
}

void TestRecovery::savedAndClosedTextsDoNot()
{
    {
        EditorSession &session = restart();
        EdCodeView *saved = session.open(m_dir->write("saved.mel", "old"));
        EdCodeView *undone = session.open(m_dir->write("undone.mel", "old"));
        EdCodeView *closed = session.open(m_dir->write("closed.mel", "old"));
        EdCodeView *buffer = session.newBuffer("Scratch");
        for (EdCodeView *view : session.codeViews())
            view->replace("new");
        QTest::qWait(50);
        QCOMPARE(int(journals().size()), 4);
        saved->save();
        undone->undo();
        session.close(closed);
        session.close(buffer);
        QVERIFY(journals().isEmpty());
        saved->replace("newer"); // and equal to the file all the same
        saved->setCursorSelection(3, 8);
        saved->replace(QString());
        QVERIFY(saved->isModified());
    }
    m_session.reset();
    QCOMPARE(int(journals().size()), 1);
    QVERIFY(restart().recover().documents.isEmpty());
    QVERIFY(m_session->codeViews().isEmpty());
    QVERIFY(journals().isEmpty());
}

void TestRecovery::undoLeadsToTheFile()
{
    const QString file = m_dir->write("a.txt", "one\r\ntwo\rthree\r\n");
    restart().open(file)->replace("new\n");
    EdCodeView *view = restart().open(file);
    m_session->recover();
    QCOMPARE(view->text(), QString("new\none\ntwo\nthree\n"));
    view->save();
    QCOMPARE(m_dir->read("a.txt"), QByteArray("new\r\none\r\ntwo\rthree\r\n"));
    QVERIFY(journals().isEmpty());
    view->undo();
    view->save();
    QCOMPARE(m_dir->read("a.txt"), QByteArray("one\r\ntwo\rthree\r\n"));
}

void TestRecovery::missingFilesKeepTheirKind()
{
    {
        EditorSession &session = restart();
        session.open(m_dir->write("a.mel", "caf\xE9\r\n"))->replace("new\n");
        session.newBuffer("Scratch")->replace("scratch");
        for (const EdCodeView *view : session.codeViews())
            QVERIFY(QFile::remove(view->fileInfo().absoluteFilePath()));
    }
    EditorSession &session = restart();
    QCOMPARE(int(session.recover().documents.size()), 2);
    QCOMPARE(int(session.codeViews().size()), 2);
    for (EdCodeView *view : session.codeViews())
        view->save();
    QCOMPARE(m_dir->read("a.mel"), QByteArray("new\r\ncaf\xE9\r\n"));
    QCOMPARE(m_dir->read("corvaneEditorBuffer-0.mel"), QByteArray("scratch"));
    QCOMPARE(session.codeViews().first()->isBuffer(), !session.codeViews().last()->isBuffer());
}

void TestRecovery::renamedFilesAreFollowed()
{
    EdCodeView *view = restart().open(m_dir->write("a.mel", "old"));
    view->replace("new ");
    QTest::qWait(50);
    view->rename("b.py");
    EditorSession &session = restart();
    QCOMPARE(namesOf(session.recover()), QStringList() << "b.py");
    QCOMPARE(session.codeViews().first()->text(), QString("new old"));
    QCOMPARE(session.codeViews().first()->fileInfo().absoluteFilePath(), m_dir->file("b.py"));
}

void TestRecovery::buffersBeyondTheLastNameLoseNothing()
{
    for (int number = 0; number < 99; ++number)
        m_dir->write(qPrintable(QString("corvaneEditorBuffer-%1.mel").arg(number)), "other");
    const QString path = m_dir->file("corvaneEditorBuffer-99.mel");
    QStringList texts;
    for (int i = 0; i < 4; ++i) {
        texts << QString("text %1").arg(i);
        (i == 0 ? restart() : *m_session).newBuffer("MEL")->replace(texts.last());
    }
    for (int session = 0; session < 3; ++session) {
        for (EdCodeView *view : m_session->codeViews()) {
            QCOMPARE(view->fileInfo().absoluteFilePath(), path);
            QVERIFY(view->saveBufferQuietly().isEmpty()); // as at a clean end
        }
        restart();
        for (int i = 0; i < 4; ++i)
            m_session->open(path, true);
        QVERIFY(m_session->recover().documents.isEmpty());
        QStringList restored;
        for (const EdCodeView *view : m_session->codeViews())
            restored << view->text();
        QCOMPARE(restored, texts);
    }
    // The tabs are lost, and with one of the buffers the file.
    m_session->close(m_session->codeViews().first());
    restart().recover();
    QCOMPARE(int(m_session->codeViews().size()), 3);
}

void TestRecovery::movedBuffersKeepTheirTexts()
{
    for (int number = 0; number < 99; ++number)
        m_dir->write(qPrintable(QString("corvaneEditorBuffer-%1.mel").arg(number)), "other");
    restart();
    for (const char *text : {"one", "two", "three"})
        m_session->newBuffer("MEL")->replace(text);
    m_session->moveToEnd(m_session->codeViews().first());
    for (EdCodeView *view : m_session->codeViews())
        view->saveBufferQuietly();
    QVERIFY(m_session->storeTabs());
    for (int crash = 0; crash < 2; ++crash) {
        restart().restoreTabs();
        m_session->recover();
        QStringList texts;
        for (const EdCodeView *view : m_session->codeViews())
            texts << view->text();
        QCOMPARE(texts, words("two three one"));
    }
}

void TestRecovery::filesChangedSinceAreNotOverwritten()
{
    const QString file = m_dir->write("a.mel", "old");
    restart().open(file)->replace("new ");
    m_session.reset();
    m_dir->write("a.mel", "others'");
    for (int crash = 0; crash < 2; ++crash) {
        EdCodeView *view = restart().open(file);
        const Recovery recovery = m_session->recover();
        QCOMPARE(view->text(), QString("new old"));
        QVERIFY(view->isFileChanged()); // so that the user is asked
        QVERIFY(recovery.documents.first().isOutdated);
    }
    // What a session that has crashed was told to ignore is asked about again.
    m_session->codeViews().first()->ignoreFileChange();
    QVERIFY(!m_session->codeViews().first()->isFileChanged());
    QVERIFY(restart().recover().documents.first().isOutdated);
}

void TestRecovery::filesOfTwoNamesAreOneDocument()
{
    const QString file = m_dir->write("a.mel", "old");
    QVERIFY(QFile::link(file, m_dir->file("link.mel")));
    restart().open(m_dir->file("link.mel"))->replace("new ");
    EdCodeView *view = restart().open(file);
    m_session->recover();
    QCOMPARE(int(m_session->codeViews().size()), 1);
    QCOMPARE(view->text(), QString("new old"));
}

void TestRecovery::mixedLineEndsStayWhereTheyWere()
{
    const QString file = m_dir->write("a.txt", "one\r\ntwo\rthree\nfour\r\nfive\r\n");
    EdCodeView *view = restart().open(file);
    view->setCursorPosition(int(view->text().indexOf("five")));
    view->replace("new\n");
    view->setCursorPosition(0);
    view->replace("new\n");
    view = restart().open(file);
    m_session->recover();
    view->save();
    QCOMPARE(m_dir->read("a.txt"), QByteArray("new\r\none\r\ntwo\rthree\nfour\r\nnew\r\nfive\r\n"));
}

// Their journals are numbered: 10 is later than 2.
void TestRecovery::theLatestOfOneSessionIsTheFiles()
{
    const QString file = m_dir->write("a.mel", "");
    for (int i = 0; i <= 10; ++i) {
        EditorSession &session = i == 0 ? restart() : *m_session;
        session.open(file)->replace(QString::number(i));
    }
    EditorSession &session = restart();
    EdCodeView *view = session.open(file);
    session.recover();
    QCOMPARE(view->text(), QString("10"));
    QCOMPARE(int(session.codeViews().size()), 11);
}

void TestRecovery::severalSessionsLoseNothing()
{
    const QString file = m_dir->write("a.mel", "old");
    auto first = std::make_unique<EditorSession>(m_dir->path());
    first->open(file)->replace("first ");
    auto second = std::make_unique<EditorSession>(m_dir->path());
    EdCodeView *view = second->open(file);
    first.reset();
    QTest::qWait(1100); // some file systems count seconds
    view->replace("second ");
    auto third = std::make_unique<EditorSession>(m_dir->path());
    third->open(file)->replace("second ");
    // The first one is not taken up: the third has it until its end.
    second.reset();
    third.reset();

    EditorSession &session = restart();
    view = session.open(file);
    QCOMPARE(namesOf(session.recover()), strings({"a.mel", "a.mel (recovered)"}));
    QCOMPARE(view->text(), QString("second old"));
    QCOMPARE(session.codeViews().last()->text(), QString("first old"));
    QVERIFY(session.codeViews().last()->isBuffer());
}

void TestRecovery::anEndingWindowStopsNoOther()
{
    restart();
    auto other = std::make_unique<EditorSession>(m_dir->path());
    m_session->newBuffer("before")->replace("before");
    other.reset();
    m_session->newBuffer("behind")->replace("behind");
    {
        EditorSession third(m_dir->path());
        QVERIFY(third.recover().documents.isEmpty()); // the ended one's folder is still in use
    }
    QCOMPARE(int(restart().recover().documents.size()), 2);
}

void TestRecovery::foldersAreMadeAgain()
{
    EdCodeView *view = restart().open(m_dir->write("a.mel", "old"));
    view->replace("new ");
    QTest::qWait(50);
    QString ignored;
    for (const char *text : {"newer ", "newest "}) {
        QVERIFY(compat::removeTree(m_dir->file("journal"), &ignored));
        view->replace(text);
        view->flushJournal();
        QCOMPARE(int(journals().size()), 1);
    }
    m_session->newBuffer("MEL")->replace("text");
    QVERIFY(compat::removeTree(m_dir->file("journal"), &ignored));
    QVERIFY(m_session->storeTabs());
    m_session->codeViews().last()->replace("more ");
    restart().restoreTabs();
    QCOMPARE(int(m_session->codeViews().size()), 2);
    m_session->recover();
    QCOMPARE(m_session->codeViews().first()->text(), QString("new newer newest old"));
    QCOMPARE(m_session->codeViews().last()->text(), QString("textmore "));
}

void TestRecovery::nothingIsDoubledByAnotherCrash()
{
    const QString file = m_dir->write("a.mel", "old");
    restart().open(file)->replace("new ");
    for (int i = 0; i < 5; ++i) {
        // Recovered, or ended before that.
        if (i % 2 == 0)
            restart().recover();
        else
            restart().open(file);
        QCOMPARE(int(m_session->codeViews().size()), 1);
        QCOMPARE(int(journals().size()), 1);
    }
}

void TestRecovery::foreignFilesNeverBecomeBuffers()
{
    QVERIFY(QDir(m_dir->path()).mkdir("elsewhere"));
    const QString moved = m_dir->file("elsewhere/corvaneEditorBuffer-0.mel");
    EdCodeView::setBufferDirectory(QDir(m_dir->file("elsewhere")));
    restart().newBuffer("MEL")->replace("text");
    m_session.reset();
    EdCodeView::setBufferDirectory(QDir(m_dir->path()));
    EditorSession &session = restart();
    session.recover();
    EdCodeView *view = session.codeViews().first();
    QCOMPARE(view->text(), QString("text"));
    QVERIFY(view->isBuffer());
    session.close(view);
    QVERIFY(QFileInfo(moved).exists());
    // Nor such as are only in the same folder, or are links.
    const QString file = m_dir->write("file", "the user's");
    QVERIFY(QFile::link(file, m_dir->file("corvaneEditorBuffer-1.mel")));
    for (const char *name : {"file", "corvaneEditorBuffer-1.mel", "corvaneEditorBuffer-100.mel"})
        QVERIFY2(!EdCodeView::isBufferPath(m_dir->file(name)), name);
    QVERIFY(!EdCodeView::isBufferPath(m_dir->file("x/../corvaneEditorBuffer-0.mel")));
    QVERIFY(EdCodeView::isBufferPath(m_dir->file("corvaneEditorBuffer-0.mel")));
}

void TestRecovery::damagedJournalsAreReported()
{
    const QString file = m_dir->write("a.mel", "old");
    restart().open(file)->replace("new ");
    m_session.reset();
    const QDir root(m_dir->file("journal"));
    const QString folder = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot).first();
    const QString name = QDir(root.filePath(folder)).entryList(QStringList("*.journal")).first();
    QFile journal(root.filePath(folder + "/" + name));
    QVERIFY(journal.open(QIODevice::ReadWrite));
    QVERIFY(journal.resize(journal.size() - 3)); // into the mark of the complete text
    journal.close();
    EdCodeView *view = restart().open(file);
    const Recovery recovery = m_session->recover();
    QCOMPARE(int(recovery.problems.size()), 1);
    QVERIFY(recovery.problems.first().contains("damaged-"));
    QCOMPARE(view->text(), QString("new old"));
    restart().recover(); // the rest is left alone
    QCOMPARE(int(root.entryList(QStringList("damaged-*"), QDir::Files).size()), 1);
}

CORVANE_TEST_MAIN(TestRecovery)
#include "tst_recovery.moc"
