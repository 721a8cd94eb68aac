// SPDX-License-Identifier: MIT
#include "workspace/textjournal.h"

#include "editor/edcodeedit.h"
#include "editor/editorlanguage.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTextCursor>

#include <algorithm>
#include <memory>
#include <random>

namespace {

JournalHeader headerOf(const char *path)
{
    JournalHeader header;
    header.path = QLatin1String(path);
    header.isBuffer = true;
    header.bufferIndex = 7;
    header.encoding = TextEncoding::Utf16BigEndian;
    header.lineEnd = QLatin1String("\r\n");
    return header;
}

// What a user, or a command, does to the text.
class RandomEdits
{
public:
    RandomEdits(EdCodeEdit *editor, unsigned seed) : m_editor(editor), m_random(seed) {}

    void next()
    {
        typedef void (RandomEdits::*Edit)();
        static const Edit edits[] = {&RandomEdits::type,    &RandomEdits::type,
                                     &RandomEdits::paste,   &RandomEdits::cut,
                                     &RandomEdits::undo,    &RandomEdits::redo,
                                     &RandomEdits::indent,  &RandomEdits::replaceAll,
                                     &RandomEdits::scatter, &RandomEdits::setText};
        (this->*edits[below(40) == 0 ? 9 : below(9)])();
    }

private:
    int below(int limit) { return int(m_random() % unsigned(limit)); }
    int anyPosition() { return below(m_editor->document()->characterCount()); }
    QString anyText()
    {
        static const char *texts[] = {"x", "{\n", "\n", "\xC2\xA0", "\xF0\x9F\x98\x80", "\t", "/*"};
        QString text;
        for (int i = below(20); i >= 0; --i)
            text += QString::fromUtf8(texts[below(7)]);
        return text;
    }
    void select() { m_editor->setCursorSelection(anyPosition(), anyPosition()); }

    void type()
    {
        m_editor->setCursorPosition(anyPosition());
        for (int i = below(6); i >= 0; --i)
            QTest::keyClick(m_editor, Qt::Key('A' + below(26)));
        QTest::keyClick(m_editor, below(2) ? Qt::Key_Return : Qt::Key_Backspace);
    }
    void paste()
    {
        select();
        m_editor->insertPlainText(anyText());
    }
    void cut()
    {
        select();
        m_editor->textCursor().removeSelectedText();
    }
    void undo() { m_editor->undo(); }
    void redo() { m_editor->redo(); }
    void indent()
    {
        select();
        m_editor->increaseIndent();
        m_editor->convertTabsToSpaces();
    }
    void replaceAll()
    {
        m_editor->clearText();
        m_editor->insertPlainText(anyText());
    }
    // Several places in one step.
    void scatter()
    {
        QTextCursor cursor(m_editor->document());
        cursor.beginEditBlock();
        for (int i = 0; i < 4; ++i) {
            cursor.setPosition(anyPosition());
            if (below(2))
                cursor.deletePreviousChar();
            cursor.insertText(anyText());
        }
        cursor.endEditBlock();
    }
    void setText() { m_editor->setText(anyText()); }

    EdCodeEdit *m_editor;
    std::mt19937 m_random;
};

} // namespace

class TestTextJournal : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyFlushHoldsTheText_data();
    void everyFlushHoldsTheText();
    void copyingGoesOnDuringEdits();
    void tornTailsLoseOneRecord();
    void damageIsTold();
    void paceIsKept();
    void longLogsAreReplaced();
    void editsWaitForNoCopy();
    void tornTailsAreCutOff();
    void keysCostTheSameInAnyText();
    void failuresAreToldOnce();
    void removedJournalsStayAway();

private:
    void begin(const QString &text);
    QString stored() const { return readJournal(m_dir->file("j")).text; }
    QString text() const { return m_editor->text(); }

    std::unique_ptr<ScratchDir> m_dir;
    std::unique_ptr<EdCodeEdit> m_editor;
    std::unique_ptr<TextJournal> m_journal;
};

void TestTextJournal::init()
{
    m_dir = std::make_unique<ScratchDir>();
    m_editor = std::make_unique<EdCodeEdit>();
    m_editor->setLanguage(MelLanguage);
}

void TestTextJournal::cleanup()
{
    m_journal.reset();
    m_editor.reset();
}

void TestTextJournal::begin(const QString &text)
{
    m_journal.reset(); // it writes its file
    QFile::remove(m_dir->file("j"));
    m_editor->setText(text);
    m_journal =
        std::make_unique<TextJournal>(m_editor->document(), m_dir->file("j"), headerOf("/a.mel"));
}

void TestTextJournal::everyFlushHoldsTheText_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 0; seed < 12; ++seed)
        QTest::newRow(qPrintable(QString("seed-%1").arg(seed))) << seed;
}

void TestTextJournal::everyFlushHoldsTheText()
{
    QFETCH(int, seed);
    begin("proc a() {\n\tprint 1;\n}\n");
    RandomEdits edits(m_editor.get(), unsigned(seed));
    for (int step = 0; step < 150; ++step) {
        edits.next();
        if (step % 3 != 0)
            continue;
        QVERIFY(m_journal->flush());
        QVERIFY2(stored() == text(), qPrintable(QString("step %1").arg(step)));
    }
    const JournalHeader header = readJournal(m_dir->file("j")).header;
    QCOMPARE(header.path, QString("/a.mel"));
    QVERIFY(header.isBuffer && header.encoding == TextEncoding::Utf16BigEndian);
    QCOMPARE(header.bufferIndex, 7);
    QCOMPARE(header.lineEnd, QString("\r\n"));
}

// Slices and edits take turns; some edits are across the end of what is copied.
void TestTextJournal::copyingGoesOnDuringEdits()
{
    int turns = 0;
    for (int round = 0; round < 40; ++round) {
        // Lines that are longer than a slice are cut.
        begin(QString("print 1;\n").repeated(50) + QString("print 1; ").repeated(50));
        TextJournal::Pace pace;
        pace.slice = 30;
        pace.turn = 0;
        m_journal->setPace(pace);
        RandomEdits edits(m_editor.get(), unsigned(round));
        while (!QFileInfo(m_dir->file("j")).exists()) {
            QVERIFY(QMetaObject::invokeMethod(m_journal.get(), "copyForAWhile"));
            edits.next();
            QVERIFY(++turns < 10000);
        }
        QVERIFY(m_journal->flush());
        const JournalContents contents = readJournal(m_dir->file("j"));
        QVERIFY(contents.state == JournalContents::Intact && contents.text == text());
    }
    QVERIFY2(turns > 100, qPrintable(QString::number(turns)));
}

void TestTextJournal::tornTailsLoseOneRecord()
{
    begin("one\n");
    QVERIFY(m_journal->flush());
    const QByteArray before = m_dir->read("j");
    m_editor->insertPlainText("two");
    QVERIFY(m_journal->flush());
    const QByteArray after = m_dir->read("j");
    QVERIFY(after.startsWith(before) && after.size() > before.size());
    for (int size = int(before.size()); size < after.size(); ++size) {
        const JournalContents torn = parseJournal(after.left(size));
        QCOMPARE(int(torn.state), int(JournalContents::Intact));
        QCOMPARE(torn.text, QString("one\n"));
    }
    QCOMPARE(parseJournal(after).text, QString("twoone\n"));
    // A copy that was never completed has never had the file's name.
    for (int size = 0; size < before.size(); ++size)
        QVERIFY(parseJournal(before.left(size)).state != JournalContents::Intact);
}

void TestTextJournal::damageIsTold()
{
    begin("one\n");
    QVERIFY(m_journal->flush());
    const int lengthOfCopy = int(m_dir->read("j").size());
    for (const char *word : {"two", "three"}) {
        m_editor->insertPlainText(word);
        QVERIFY(m_journal->flush());
        m_editor->setCursorPosition(0);
    }
    QByteArray bytes = m_dir->read("j");
    // What seems to be cut short is not: there is more behind it.
    QByteArray tooLong = bytes;
    tooLong[lengthOfCopy] = char(0x70);
    QCOMPARE(int(parseJournal(tooLong).state), int(JournalContents::Damaged));
    QCOMPARE(parseJournal(tooLong).text, QString("one\n"));
    const int damaged = bytes.size() - 40; // in the last record but one
    bytes[damaged] = char(bytes.at(damaged) ^ 1);
    const JournalContents contents = parseJournal(bytes);
    QCOMPARE(int(contents.state), int(JournalContents::Damaged));
    QVERIFY(!contents.text.startsWith("three"));
    QCOMPARE(contents.header.path, QString("/a.mel"));
    QCOMPARE(int(parseJournal("something else").state), int(JournalContents::Unreadable));
}

void TestTextJournal::paceIsKept()
{
    begin("");
    TextJournal::Pace pace;
    pace.afterLast = 300;
    pace.afterFirst = 600;
    m_journal->setPace(pace);
    QVERIFY(m_journal->flush());
    QElapsedTimer clock;
    clock.start();
    m_editor->insertPlainText("x");
    while (stored().isEmpty() && clock.elapsed() < 5000)
        QTest::qWait(10);
    QVERIFY2(clock.elapsed() >= 250, "every key would be written");
    clock.start();
    const QString before = stored();
    while (stored() == before && clock.elapsed() < 5000) {
        m_editor->insertPlainText("y");
        QTest::qWait(20);
    }
    QVERIFY2(clock.elapsed() >= 500 && clock.elapsed() < 1500,
             qPrintable(QString::number(clock.elapsed())));
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(!(QFileInfo(m_dir->file("j")).permissions() & others));
}

void TestTextJournal::longLogsAreReplaced()
{
    begin("short");
    qint64 largest = 0;
    for (int i = 0; i < 30; ++i) {
        m_editor->clearText();
        m_editor->insertPlainText(QString("0123456789\n").repeated(2000));
        QVERIFY(m_journal->flush());
        QVERIFY(stored() == text());
        QTest::qWait(5);
        largest = std::max(largest, QFileInfo(m_dir->file("j")).size());
    }
    QVERIFY2(largest < 700000, qPrintable(QString::number(largest)));
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), QStringList() << "j");
}

void TestTextJournal::editsWaitForNoCopy()
{
    begin("text");
    QVERIFY(m_journal->flush());
    QSignalSpy failed(m_journal.get(), SIGNAL(failed(QString)));
    QVERIFY(QDir(m_dir->path()).mkdir("j.tmp")); // so there is none
    for (int i = 0; i < 30; ++i) {
        m_editor->clearText();
        m_editor->insertPlainText(QString("%1\n").arg(i).repeated(10000));
        QVERIFY(m_journal->flush());
        QVERIFY(stored() == text());
        QTest::qWait(1);
    }
    QVERIFY(failed.isEmpty());
    JournalHeader header = headerOf("/renamed.mel");
    m_journal->setHeader(header);
    QCOMPARE(readJournal(m_dir->file("j")).header.path, header.path);
    QVERIFY(stored() == text());
}

// As of a disk that was full for a moment.
void TestTextJournal::tornTailsAreCutOff()
{
    begin("one\n");
    QVERIFY(m_journal->flush());
    QFile file(m_dir->file("j"));
    QVERIFY(file.open(QIODevice::Append) && file.write("torn") == 4);
    file.close();
    m_editor->insertPlainText("two");
    QVERIFY(m_journal->flush());
    const JournalContents contents = readJournal(file.fileName());
    QCOMPARE(int(contents.state), int(JournalContents::Intact));
    QCOMPARE(contents.text, QString("twoone\n"));
    QCOMPARE(contents.size, file.size());
}

void TestTextJournal::keysCostTheSameInAnyText()
{
    qint64 nanoseconds[2] = {};
    for (int i = 0; i < 2; ++i) {
        QTextDocument document(QString("print 1;\n").repeated(i == 0 ? 100 : 300000));
        TextJournal journal(&document, m_dir->file("k"), headerOf("/k.mel"));
        QVERIFY(journal.flush());
        QTextCursor cursor(&document);
        qint64 best = 1 << 30;
        for (int run = 0; run < 5; ++run) {
            QElapsedTimer clock;
            clock.start();
            for (int key = 0; key < 200; ++key) {
                cursor.insertText("x");
                QVERIFY(key % 50 != 0 || QMetaObject::invokeMethod(&journal, "writePending"));
            }
            best = std::min(best, clock.nsecsElapsed());
        }
        nanoseconds[i] = best;
    }
    QVERIFY2(nanoseconds[1] < 5 * nanoseconds[0] + 2000000,
             qPrintable(QString("%1 ns, %2 ns").arg(nanoseconds[0]).arg(nanoseconds[1])));
}

void TestTextJournal::failuresAreToldOnce()
{
    m_editor->setText("text");
    QVERIFY(!QDir(m_dir->file("gone")).exists());
    TextJournal journal(m_editor->document(), m_dir->file("gone/j"), headerOf("/a.mel"));
    TextJournal::Pace pace;
    pace.retry = 20;
    journal.setPace(pace);
    QSignalSpy failed(&journal, SIGNAL(failed(QString)));
    QTest::qWait(200);
    m_editor->insertPlainText("more ");
    QVERIFY(!journal.flush());
    QCOMPARE(int(failed.size()), 1);
    QVERIFY(!failed.first().first().toString().isEmpty());
    QVERIFY(QDir(m_dir->path()).mkdir("gone"));
    for (int i = 0; i < 200 && !QFileInfo(m_dir->file("gone/j")).exists(); ++i)
        QTest::qWait(10);
    QCOMPARE(readJournal(m_dir->file("gone/j")).text, QString("more text"));
    // Somebody tidies up.
    QVERIFY(QFile::remove(m_dir->file("gone/j")));
    m_editor->insertPlainText("again ");
    QVERIFY(journal.flush());
    QCOMPARE(readJournal(m_dir->file("gone/j")).text, text());
}

void TestTextJournal::removedJournalsStayAway()
{
    begin("text");
    m_journal->remove(); // while it is being copied
    m_editor->insertPlainText("more");
    QTest::qWait(20);
    m_journal.reset();
    QVERIFY(QDir(m_dir->path()).entryList(QDir::Files).isEmpty());
    begin("text");
    m_editor->insertPlainText("more ");
    m_journal.reset(); // as at the program's end
    QCOMPARE(stored(), QString("more text"));
}

CORVANE_TEST_MAIN(TestTextJournal)
#include "tst_textjournal.moc"
