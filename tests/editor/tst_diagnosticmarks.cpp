// SPDX-License-Identifier: MIT
#include "analysis/diagnosticlist.h"
#include "editor/diagnosticmarks.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <random>

// A document with marks that hear of its changes, as those of an editor do.
class MarkedText : public QObject
{
    Q_OBJECT

public:
    explicit MarkedText(const QString &text)
    {
        // Without a layout a document tells nobody what changed.
        m_document.setDocumentLayout(new QPlainTextDocumentLayout(&m_document));
        m_document.setPlainText(text);
        m_lines = m_document.blockCount();
        connect(&m_document, SIGNAL(contentsChange(int, int, int)), SLOT(shift(int, int, int)));
    }

    void mark(int start, int end, const QString &message = QString("m"))
    {
        m_list.add(message, start, end);
        m_marks.set(m_list, &m_document);
        m_known.set(m_list, &m_document);
    }

    const DiagnosticMarks &marks() const { return m_marks; }
    // The same ones, but asked for after every change.
    const DiagnosticMarks &knownMarks() const { return m_known; }
    QTextDocument *document() { return &m_document; }
    QTextCursor cursor(int from, int to)
    {
        QTextCursor cursor(&m_document);
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        return cursor;
    }

    // The marked text and its line: "1:abc 2:d".
    QString shown() const
    {
        QStringList shown;
        for (const EdDiagnosticMark &mark : m_marks.all()) {
            QString text;
            for (int i = mark.start; i < mark.end; ++i)
                text += m_document.characterAt(i);
            shown << QString("%1:%2").arg(mark.line).arg(text);
        }
        return shown.join(" ");
    }

private slots:
    void shift(int position, int removed, int added)
    {
        const int lines = m_document.blockCount();
        m_marks.shift(position, removed, added, lines - m_lines);
        m_known.shift(position, removed, added, lines - m_lines);
        m_known.all();
        m_lines = lines;
    }

private:
    QTextDocument m_document;
    DiagnosticList m_list;
    DiagnosticMarks m_marks;
    DiagnosticMarks m_known;
    int m_lines = 0;
};

// Of those that cover a character.
QStringList places(const std::vector<EdDiagnosticMark> &marks, int firstLine, int lastLine)
{
    QStringList places;
    for (const EdDiagnosticMark &mark : marks) {
        if (mark.line >= firstLine && mark.line <= lastLine && mark.start < mark.end)
            places << QString("%1-%2").arg(mark.start).arg(mark.end);
    }
    return places;
}

QStringList places(const std::vector<QTextCursor> &cursors)
{
    QStringList places;
    for (const QTextCursor &cursor : cursors)
        places << QString("%1-%2").arg(cursor.anchor()).arg(cursor.position());
    return places;
}

class TestDiagnosticMarks : public QObject
{
    Q_OBJECT

private slots:
    void editsMoveOrDropMarks_data();
    void editsMoveOrDropMarks();
    void gatheredEditsKeepWhatTheyDidNotTouch();
    void gatheredEditsReachIntoMarks();
    void marksAreTheSameHoweverOftenAskedFor();
    void undoneRemovalDoesNotInventMarks();
    void theLaterMarkOfALineWins();
    void listsMayReachBeyondTheText();
};

void TestDiagnosticMarks::editsMoveOrDropMarks_data()
{
    columns<int, int, QString, QString>("from", "to", "typed", "shown");

    // The text is "one\ntwo three\nfour", with a mark on "three".
    row("typed-before", 0, 0, "x", "1:three");
    row("typed-at-start", 8, 8, "x", "1:three");
    row("typed-inside", 10, 10, "x", "1:thxree");
    row("typed-at-end", 13, 13, "x", "1:three");
    row("typed-behind", 14, 14, "x", "1:three");
    row("line-above-added", 0, 0, "a\nb\n", "3:three");
    row("line-above-removed", 0, 4, "", "0:three");
    row("line-broken-before-it", 8, 8, "\n", "2:three");
    row("line-broken-inside", 10, 10, "\n", QString("1:th%1ree").arg(QChar(0x2029)));
    row("removed-whole", 8, 13, "", "");
    row("removed-with-more", 5, 15, "x", "");
    row("replaced-by-as-much", 8, 13, "seven", "");
    row("removed-inside", 9, 11, "", "1:tee");
    row("head-removed", 2, 10, "", "0:ree");
    row("tail-removed", 11, 16, "", "1:thr");
    row("tail-replaced", 11, 16, "xyz", "1:thr");
    row("everything-removed", 0, 18, "", "");
}

void TestDiagnosticMarks::editsMoveOrDropMarks()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    MarkedText text("one\ntwo three\nfour");
    text.mark(8, 13);
    QCOMPARE(text.shown(), QString("1:three"));
    text.cursor(from, to).insertText(typed);
    QCOMPARE(text.shown(), shown);
    QCOMPARE(text.marks().lines().keys().value(0, -1),
             shown.isEmpty() ? -1 : shown.left(1).toInt());
}

// Indenting lines is one change from the first to the last, marks between them included.
void TestDiagnosticMarks::gatheredEditsKeepWhatTheyDidNotTouch()
{
    MarkedText text("a\nbb\nccc\ndd");
    text.mark(0, 1);
    text.mark(2, 4);
    text.mark(5, 8);
    text.mark(9, 11);
    QTextCursor cursor(text.document());
    cursor.beginEditBlock();
    for (int line = 0; line < 3; ++line) {
        cursor.setPosition(text.document()->findBlockByNumber(line).position());
        cursor.insertText("    ");
    }
    cursor.endEditBlock();
    QCOMPARE(text.shown(), QString("0:a 1:bb 2:ccc 3:dd"));
    text.document()->undo();
    QCOMPARE(text.shown(), QString("0:a 1:bb 2:ccc 3:dd"));

    cursor.beginEditBlock();
    cursor.setPosition(0);
    cursor.insertText("new\n");
    cursor.setPosition(6);
    cursor.setPosition(8, QTextCursor::KeepAnchor);
    cursor.removeSelectedText(); // "bb"
    cursor.endEditBlock();
    QCOMPARE(text.shown(), QString("1:a 3:ccc 4:dd"));
    QCOMPARE(text.marks().lines().keys(), QList<int>() << 1 << 3 << 4);
    QVERIFY(text.marks().linesBetween(2, 4) == (std::vector<int>{3, 4}));
}

// A mark over several lines grows by what is put between its characters.
void TestDiagnosticMarks::gatheredEditsReachIntoMarks()
{
    MarkedText text("aaa\nbbb\nccc");
    text.mark(1, 10);
    text.mark(1, 6);
    QTextCursor cursor(text.document());
    cursor.beginEditBlock();
    for (int line = 0; line < 3; ++line) {
        cursor.setPosition(text.document()->findBlockByNumber(line).position());
        cursor.insertText("  ");
    }
    cursor.endEditBlock();
    const QChar eol(QChar::ParagraphSeparator);
    QCOMPARE(text.shown(), QString("0:aa%1  bbb%1  cc 0:aa%1  bb").arg(eol));
}

// Bursts of keys at one place, with a look at all marks, or at those in view, now and then.
void TestDiagnosticMarks::marksAreTheSameHoweverOftenAskedFor()
{
    MarkedText text(QString("0123456789\n").repeated(200));
    for (int start = 0; start < 2000; start += 15)
        text.mark(start, start + start % 7);
    std::mt19937 dice(1);
    QTextCursor cursor(text.document());
    for (int i = 0; i < 4000; ++i) {
        if (i % 500 == 0)
            text.mark(500, 900); // as of now, all of them anew
        if (i % 10 == 0)
            cursor.setPosition(int(dice() % 1000));
        const unsigned key = dice() % 8;
        if (key == 0)
            cursor.insertBlock();
        else if (key == 1)
            cursor.deletePreviousChar();
        else if (key == 2)
            cursor.deleteChar();
        else if (key < 6)
            cursor.insertText("x");
        else
            cursor.movePosition(key == 6 ? QTextCursor::Left : QTextCursor::Right);
        const int line = i / 1000;
        if (i % 3 == 0)
            QCOMPARE(places(text.marks().charactersBetween(line, 500)),
                     places(text.knownMarks().all(), line, 500));
        if (i % 37 == 0)
            QCOMPARE(text.marks().lines(), text.knownMarks().lines());
    }
    QCOMPARE(places(text.marks().all(), 0, 9999), places(text.knownMarks().all(), 0, 9999));
    QVERIFY(text.marks().all().size() > 50);
    for (const EdDiagnosticMark &mark : text.marks().all())
        QCOMPARE(mark.line, text.document()->findBlock(mark.start).blockNumber());
}

void TestDiagnosticMarks::undoneRemovalDoesNotInventMarks()
{
    MarkedText text("one two");
    text.mark(4, 7);
    text.cursor(2, 7).removeSelectedText();
    QCOMPARE(text.shown(), QString());
    text.document()->undo();
    QCOMPARE(text.shown(), QString());
}

void TestDiagnosticMarks::theLaterMarkOfALineWins()
{
    MarkedText text("one two\nthree");
    text.mark(4, 7, "first");
    text.mark(0, 3, "second");
    QCOMPARE(text.marks().lines().value(0), QString("second"));
    // Both lie under one position of the longer mark; the list's order decides.
    text.mark(0, 7, "third");
    QCOMPARE(text.marks().at(5)->message, QString("first"));
    QCOMPARE(text.marks().at(3)->message, QString("third"));
    QVERIFY(!text.marks().at(7));
    text.cursor(0, 3).removeSelectedText();
    QCOMPARE(text.marks().lines().value(0), QString("third"));
}

void TestDiagnosticMarks::listsMayReachBeyondTheText()
{
    MarkedText text("ab\nc");
    text.mark(1, -1);
    text.mark(3, 99);
    text.mark(50, 60);
    QCOMPARE(text.shown(), QString("0:b%1c 1:c 1:").arg(QChar(0x2029)));
    text.cursor(0, 0).insertText("x\n");
    QCOMPARE(text.shown(), QString("1:b%1c 2:c 2:").arg(QChar(0x2029)));
}

CORVANE_TEST_MAIN(TestDiagnosticMarks)
#include "tst_diagnosticmarks.moc"
