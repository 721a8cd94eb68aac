// SPDX-License-Identifier: MIT
#include "editor/edcodeedit.h"
#include "tests/support/datatable.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcodeview.h"

#include <QFile>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>

#include <memory>

namespace {

QByteArray numberedLines(int first, int last)
{
    QByteArray lines;
    for (int line = first; line <= last; ++line)
        lines += "line " + QByteArray::number(line) + "\n";
    return lines;
}

} // namespace

// How a view follows what others do to its file.
class TestEdCodeViewFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void onlyOtherBytesAreAChange();
    void missingFilesAreNotChanged();
    void ignoredChangesAreNotReportedAgain();
    void reloadingIsOneEdit();
    void reloadingKeepsCaretAndScrollPosition_data();
    void reloadingKeepsCaretAndScrollPosition();
    void reloadingTakesEncodingAndLineEnds();
    void failedReloadsChangeNothing();
    void loadingTheOwnFileCanBeUndone();
    void unseenViewsLayNothingOut();
    void unseenViewsAreLikeOthers();
    void placesScrollSidewaysOnlyAsNeeded_data();
    void placesScrollSidewaysOnlyAsNeeded();

private:
    void open(const QByteArray &bytes);
    void select(int position, int anchor) { m_view->setCursorSelection(position, anchor); }

    std::unique_ptr<ScratchDir> m_dir;
    std::unique_ptr<EdCodeView> m_view;
};

void TestEdCodeViewFile::init()
{
    m_dir = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_dir->path()));
}

void TestEdCodeViewFile::cleanup()
{
    m_view.reset();
    m_dir.reset();
}

void TestEdCodeViewFile::open(const QByteArray &bytes)
{
    m_view.reset(EdCodeView::createUnseen(nullptr));
    QVERIFY(m_view->load(QFileInfo(m_dir->write("a.mel", bytes)), false, -1));
}

void TestEdCodeViewFile::onlyOtherBytesAreAChange()
{
    open("one");
    QVERIFY(!m_view->isFileChanged());
    m_dir->write("a.mel", "two");
    QVERIFY(m_view->isFileChanged());
    m_dir->write("a.mel", "one"); // touched, or put back
    QVERIFY(!m_view->isFileChanged());
    m_view->replace("our ");
    m_view->save();
    QVERIFY(!m_view->isFileChanged());
    m_dir->write("a.mel", "other");
    m_view->saveAs(m_dir->file("b.mel"));
    QVERIFY(!m_view->isFileChanged());
    m_dir->write("b.mel", "our on\xC3"); // of the same size
    QVERIFY(m_view->isFileChanged());
    QVERIFY(m_view->reload());
    QVERIFY(!m_view->isFileChanged());

    EdCodeView buffer(0, EdCodeView::Mel);
    buffer.replace("x");
    QCOMPARE(buffer.saveBufferQuietly(), QString());
    QVERIFY(!buffer.isFileChanged() && !buffer.isFileMissing());
}

void TestEdCodeViewFile::missingFilesAreNotChanged()
{
    open("one");
    QVERIFY(!m_view->isFileMissing());
    QVERIFY(QFile::remove(m_dir->file("a.mel")));
    QVERIFY(m_view->isFileMissing());
    QVERIFY(!m_view->isFileChanged());
    QVERIFY(QDir(m_dir->path()).mkdir("a.mel")); // nor is what cannot be read
    QVERIFY(!m_view->isFileMissing());
    QVERIFY(!m_view->isFileChanged());
}

void TestEdCodeViewFile::ignoredChangesAreNotReportedAgain()
{
    open("one");
    m_dir->write("a.mel", "two");
    m_view->ignoreFileChange();
    QVERIFY(!m_view->isFileChanged());
    QCOMPARE(m_view->text(), QString("one"));
    m_dir->write("a.mel", "one");
    QVERIFY(m_view->isFileChanged());
}

void TestEdCodeViewFile::reloadingIsOneEdit()
{
    open("a\nb\nc\n");
    select(2, 2);
    m_view->replace("typed ");
    m_dir->write("a.mel", "a\nx\ny\nc\nd\n");
    QVERIFY(m_view->reload());
    QCOMPARE(m_view->text(), QString("a\nx\ny\nc\nd\n"));
    QVERIFY(!m_view->isModified());
    m_view->undo();
    QCOMPARE(m_view->text(), QString("a\ntyped b\nc\n"));
    QVERIFY(m_view->isModified());
    m_view->redo();
    QVERIFY(!m_view->isModified());

    QSignalSpy changes(m_view.get(), SIGNAL(textChanged()));
    QVERIFY(m_view->reload());
    QCOMPARE(int(changes.size()), 0);
}

void TestEdCodeViewFile::reloadingKeepsCaretAndScrollPosition_data()
{
    columns<QByteArray, QString, int, int>("bytes", "selected", "caretLine", "topLine");

    // Line 100 is at the top; "100" to "10" in line 102 is selected, backwards.
    const QString selected =
        QString("100") + QChar(0x2029) + "line 101" + QChar(0x2029) + "line 10";
    row("below", numberedLines(1, 200) + "new", selected, 100, 100);
    row("lines-come-above", "x\ny\n" + numberedLines(1, 300), selected, 102, 102);
    row("lines-go-above", numberedLines(11, 300), selected, 90, 90);
    row("all-others", QByteArray("other\n").repeated(300),
        QString(QChar(0x2029)) + "other" + QChar(0x2029) + "other", 100, 100);
    row("short", QByteArray("ab"), QString(), 1, 1);
}

void TestEdCodeViewFile::reloadingKeepsCaretAndScrollPosition()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, selected);
    QFETCH(int, caretLine);
    QFETCH(int, topLine);
    for (const bool shown : {true, false}) {
        open(numberedLines(1, 300));
        m_view->resize(300, 200);
        m_view->setVisible(shown);
        const QTextDocument *document = m_view->codeEdit()->document();
        select(document->findBlockByNumber(99).position() + 5,
               document->findBlockByNumber(101).position() + 7);
        QScrollBar *bar = m_view->codeEdit()->verticalScrollBar();
        bar->setValue(99);
        m_dir->write("a.mel", bytes);
        QVERIFY(m_view->reload());
        QCOMPARE(m_view->selectedText(), selected);
        QCOMPARE(m_view->codeEdit()->currentLine(), caretLine);
        QCOMPARE(bar->value() + 1, topLine);
    }
}

void TestEdCodeViewFile::reloadingTakesEncodingAndLineEnds()
{
    open("a\nb\r\n\nc\n");
    for (const char *bytes : {"a\r\nb\r\n\r\nc\r\n", "a\rb\n\r\nc\n",
                              "\xFF\xFE"
                              "a\0\n\0b\0",
                              "caf\xE9\r\rc"}) {
        const QByteArray text = bytes[0] == '\xFF' ? QByteArray(bytes, 8) : QByteArray(bytes);
        m_dir->write("a.mel", text);
        QVERIFY(m_view->reload());
        QVERIFY(!m_view->isModified());
        m_view->forceModified();
        m_view->save();
        QCOMPARE(m_dir->read("a.mel").toHex(), text.toHex());
    }
    while (m_view->codeEdit()->document()->isUndoAvailable())
        m_view->undo();
    QCOMPARE(m_view->text(), QString("a\nb\n\nc\n"));
}

void TestEdCodeViewFile::failedReloadsChangeNothing()
{
    open("kept");
    m_view->replace("changed and ");
    QVERIFY(QFile::remove(m_dir->file("a.mel")));
    ModalAnswer answer("OK");
    QVERIFY(!m_view->reload());
    QCOMPARE(answer.title(), QString("File Read Error"));
    QVERIFY(answer.text().startsWith(QString("Cannot read file %1:\n").arg(m_dir->file("a.mel"))));
    QVERIFY(m_view->isModified() && m_view->isFileMissing());
    m_view->undo();
    QCOMPARE(m_view->text(), QString("kept"));
}

void TestEdCodeViewFile::loadingTheOwnFileCanBeUndone()
{
    open("old\nkept\n");
    m_dir->write("a.mel", "new\nkept\n");
    QVERIFY(m_view->load(m_view->fileInfo(), false, -1));
    QCOMPARE(m_view->codeEdit()->textCursor().position(), 0);
    QVERIFY(!m_view->isModified());
    m_view->undo();
    QCOMPARE(m_view->text(), QString("old\nkept\n"));
    QVERIFY(m_view->load(QFileInfo(m_dir->write("b.mel", "b")), false, -1));
    QVERIFY(!m_view->codeEdit()->document()->isUndoAvailable());
}

void TestEdCodeViewFile::unseenViewsLayNothingOut()
{
    open(numberedLines(1, 300));
    m_view->setPlace(800, 95);
    QVERIFY(!m_view->isModified() && !m_view->isFileChanged());
    QCOMPARE(m_view->cursorPosition(), 800);
    QCOMPARE(m_view->scrollValue(), 95);
    m_view->updateTabsAndSpaces();
    m_view->updateFontAndColors();
    QVERIFY(!m_view->findChild<EdCodeEdit *>());
    QSignalSpy changes(m_view.get(), SIGNAL(textChanged()));
    QSignalSpy moves(m_view.get(), SIGNAL(cursorStatusChanged()));
    QSignalSpy flags(m_view.get(), SIGNAL(modificationChanged(bool)));
    m_view->resize(300, 200);
    m_view->show();
    QVERIFY(m_view->findChild<EdCodeEdit *>()->isVisible());
    QCOMPARE(int(changes.size() + moves.size() + flags.size()), 0);
    QCOMPARE(m_view->cursorPosition(), 800);
    QCOMPARE(m_view->codeEdit()->currentLine(), 101);
    QCOMPARE(m_view->scrollValue(), 95);
}

// Whoever asks first.
void TestEdCodeViewFile::unseenViewsAreLikeOthers()
{
    const QByteArray bytes = "a\xC3\xA9\r\n\nb";
    open(bytes);
    QCOMPARE(m_view->text(), QString::fromUtf8("a\xC3\xA9\n\nb"));
    QVERIFY(!m_view->isModified());
    open(bytes);
    m_view->forceModified();
    m_view->save();
    QCOMPARE(m_dir->read("a.mel"), bytes);
    open(bytes);
    m_view->replace("x");
    QVERIFY(m_view->isModified());
    m_view->undo();
    QVERIFY(!m_view->isModified());
    open(bytes);
    m_dir->write("a.mel", "other");
    QVERIFY(m_view->reload());
    m_view->undo();
    QCOMPARE(m_view->text(), QString::fromUtf8("a\xC3\xA9\n\nb"));
    open(bytes);
    m_view->setPlace(-5, 7);
    m_view->show();
    QCOMPARE(m_view->cursorPosition(), 0);
    open(bytes);
    QVERIFY(m_view->load(QFileInfo(m_dir->write("b.py", "")), false, -1));
    QVERIFY(m_view->text().isEmpty() && !m_view->isModified());
    QCOMPARE(m_view->language(), int(EdCodeView::Python));
}

void TestEdCodeViewFile::placesScrollSidewaysOnlyAsNeeded_data()
{
    columns<int, bool, bool>("caret", "isAskedFor", "scrolls");

    row("fits", 17, false, false);
    row("fits, laid out unseen", 17, true, false);
    row("too far", 300, false, true);
    row("too far, laid out unseen", 300, true, true);
}

// Windows get their size late.
void TestEdCodeViewFile::placesScrollSidewaysOnlyAsNeeded()
{
    QFETCH(int, caret);
    QFETCH(bool, isAskedFor);
    QFETCH(bool, scrolls);
    open(QByteArray(400, 'x') + "\n");
    m_view->resize(100, 60);
    m_view->setPlace(caret, 0);
    if (isAskedFor)
        m_view->codeEdit();
    m_view->show();
    m_view->resize(700, 200);
    QTest::qWait(10);
    const EdCodeEdit *edit = m_view->codeEdit();
    QCOMPARE(edit->horizontalScrollBar()->value() > 0, scrolls);
    QVERIFY(edit->viewport()->rect().contains(edit->cursorRect()));
}

CORVANE_TEST_MAIN(TestEdCodeViewFile)
#include "tst_edcodeviewfile.moc"
