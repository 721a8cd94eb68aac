// SPDX-License-Identifier: MIT
#include "workspace/lineends.h"

#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace {

// Opens what pasting calls.
struct PasteTarget : QPlainTextEdit
{
    using QPlainTextEdit::insertFromMimeData;
};

// A view's widget with the text of a file.
struct Document
{
    explicit Document(const QString &text) { open(text); }

    void open(const QString &text)
    {
        edit.setPlainText(text);
        ends.mark(edit.document(), text);
    }
    QString text() const { return ends.text(*edit.document()); }
    void undoAll()
    {
        while (edit.document()->isUndoAvailable())
            edit.undo();
    }
    void redoAll()
    {
        while (edit.document()->isRedoAvailable())
            edit.redo();
    }
    // The caret is before the end of a line, counted from 0.
    void moveTo(int line)
    {
        QTextCursor cursor(edit.document()->findBlockByNumber(line));
        cursor.movePosition(QTextCursor::EndOfBlock);
        edit.setTextCursor(cursor);
    }

    PasteTarget edit;
    LineEnds ends;
};

const QString paragraphSeparator(QChar(0x2029));
const QString mixedText = "one\r\ntwo\nthree\rfour\n\n\r\n\r\n\rfive" + paragraphSeparator + "six" +
                          QChar(0xFDD0) + QChar(0xFDD1) + "seven\r\r\neight\n";

// The characters of a text, each line end one of them, as positions in a document count them.
QStringList units(const QString &text)
{
    QStringList result;
    for (int i = 0; i < text.size(); ++i) {
        const int length = text.mid(i, 2) == QLatin1String("\r\n") ? 2 : 1;
        result << text.mid(i, length);
        i += length - 1;
    }
    return result;
}

} // namespace

class TestLineEnds : public QObject
{
    Q_OBJECT

private slots:
    void everyCharacterSurvives();
    void anyMixSurvives();
    void editsTakeNoOtherLinesEnd();
    void newLinesTakeTheCommonestEnd_data();
    void newLinesTakeTheCommonestEnd();
    void unusualEndsAreNotHandedOn();
    void marksAreNoEdit();
    void anotherTextBringsItsOwnEnds();
};

void TestLineEnds::everyCharacterSurvives()
{
    QString text;
    for (int unit = 0; unit <= 0xFFFF; ++unit)
        text += QChar(ushort(unit));
    for (int unit = 0; unit <= 0xFFFF; ++unit)
        text += QString("a") + QChar(ushort(unit)) + QChar(ushort(unit)) + "b\n";
    const Document document(text);
    QVERIFY(document.text() == text);
}

void TestLineEnds::anyMixSurvives()
{
    const QStringList parts =
        strings({"a", "\n", "\r\n", "\r", paragraphSeparator, QString(QChar(0xFDD0)), "\n\r"});
    const int count = int(parts.size());
    for (int mix = 0; mix < count * count * count * count; ++mix) {
        QString text;
        for (int rest = mix, i = 0; i < 4; ++i, rest /= count)
            text += parts.at(rest % count);
        const Document document(text);
        QVERIFY2(document.text() == text, text.toUtf8().toHex().constData());
    }
}

// Removes parts at random; exactly these characters of the file are gone, and undo brings exactly
// these back.
void TestLineEnds::editsTakeNoOtherLinesEnd()
{
    unsigned seed = 7;
    for (int round = 0; round < 300; ++round) {
        Document document(mixedText);
        QStringList expected = units(mixedText);
        for (int edits = 0; edits < 5 && expected.size() > 8; ++edits) {
            seed = seed * 1103515245 + 12345;
            const int length = 1 + int((seed >> 8) % 6);
            const int start = int((seed >> 16) % unsigned(expected.size() - length));
            QTextCursor cursor(document.edit.document());
            cursor.setPosition(start);
            cursor.setPosition(start + length, QTextCursor::KeepAnchor);
            cursor.insertText("xy");
            for (int i = 0; i < length; ++i)
                expected.removeAt(start);
            expected.insert(start, "x");
            expected.insert(start + 1, "y");
            QCOMPARE(document.text(), expected.join(QString()));
        }
        document.undoAll();
        QCOMPARE(document.text(), mixedText);
        document.redoAll();
        QCOMPARE(document.text(), expected.join(QString()));
    }
}

void TestLineEnds::newLinesTakeTheCommonestEnd_data()
{
    columns<QString, int, QString>("text", "line", "result");

    row("line-feeds", "a\nb", 1, "a\nb\nx");
    row("both", "a\r\nb", 1, "a\r\nb\r\nx");
    row("carriage-returns", "a\rb", 1, "a\rb\rx");
    row("commonest", "a\nb\r\nc\r\nd", 0, "a\r\nx\nb\r\nc\r\nd");
    row("never-a-character", "a" + paragraphSeparator + "b", 1, "a" + paragraphSeparator + "b\nx");
    row("none-yet", "a", 0, "a\nx");
}

void TestLineEnds::newLinesTakeTheCommonestEnd()
{
    QFETCH(QString, text);
    QFETCH(int, line);
    QFETCH(QString, result);
    Document document(text);
    document.moveTo(line);
    QTest::keyClick(&document.edit, Qt::Key_Return);
    QTest::keyClicks(&document.edit, "x");
    QCOMPARE(document.text(), result);
}

// Typed, inserted and pasted, on the empty line behind such an end and on what was typed there.
void TestLineEnds::unusualEndsAreNotHandedOn()
{
    const QStringList ends =
        strings({"\r", "\r\n", paragraphSeparator, QString(QChar(0xFDD0)), QString(QChar(0xFDD1))});
    for (const QString &end : ends) {
        const QString text = "a\nb\nc" + end + end + "d\n";
        Document document(text);
        document.moveTo(3);
        QTest::keyClick(&document.edit, Qt::Key_Return);
        document.edit.insertPlainText("x\ny");
        QMimeData pasted;
        pasted.setText("p\nq");
        document.edit.insertFromMimeData(&pasted);
        const QString expected = "a\nb\nc" + end + "\nx\nyp\nq" + end + "d\n";
        QCOMPARE(document.text(), expected);
        document.undoAll();
        QCOMPARE(document.text(), text);
        document.redoAll();
        QCOMPARE(document.text(), expected);

        // The end before it goes; what was inserted behind does not become it.
        QTextCursor cursor(document.edit.document()->findBlockByNumber(3));
        cursor.deletePreviousChar();
        QCOMPARE(document.text(), "a\nb\nc\nx\nyp\nq" + end + "d\n");
    }
}

void TestLineEnds::marksAreNoEdit()
{
    Document document(mixedText);
    QVERIFY(!document.edit.document()->isUndoAvailable());
    document.edit.insertPlainText("x");
    QVERIFY(document.edit.document()->isUndoAvailable());
}

// The caret stands behind an unusual end when the file is loaded again.
void TestLineEnds::anotherTextBringsItsOwnEnds()
{
    const QStringList texts = strings({"b\nc\r\nd\n", "b\nc\n", mixedText});
    for (const QString &text : texts) {
        Document document("a\n\r\r\n\n\n");
        document.edit.setTextCursor(QTextCursor(document.edit.document()->findBlockByNumber(2)));
        document.open(text);
        QCOMPARE(document.text(), text);
    }
}

CORVANE_TEST_MAIN(TestLineEnds)
#include "tst_lineends.moc"
