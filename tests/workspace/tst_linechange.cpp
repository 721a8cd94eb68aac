// SPDX-License-Identifier: MIT
#include "workspace/linechange.h"

#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QTextBlock>
#include <QTextDocument>

class TestLineChange : public QObject
{
    Q_OBJECT

private slots:
    void onlyLinesThatDifferChange_data();
    void onlyLinesThatDifferChange();
    void lineEndsAreNoDifference();
    void anyTextBecomesAnyOther();
};

namespace {

struct LineName : QTextBlockUserData
{
    explicit LineName(const QString &text) : name(text) {}
    QString name;
};

QString joined(const QString &letters)
{
    QStringList lines;
    for (const QChar letter : letters)
        lines << QString(letter);
    return lines.join("\n");
}

} // namespace

void TestLineChange::onlyLinesThatDifferChange_data()
{
    QTest::addColumn<QString>("before"); // a letter is a line
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("lines"); // first, removed, added
    QTest::addColumn<QString>("kept");

    row("equal", "abc", "abc", "3 0 0", "abc");
    row("one-line", "abcd", "abxd", "2 1 1", "abd");
    row("more-lines", "abcd", "axyzcd", "1 1 3", "acd");
    row("fewer-lines", "abcde", "axe", "1 3 1", "ae");
    row("new-at-start", "ab", "xyab", "0 0 2", "b");
    row("new-inside", "ab", "axyb", "1 0 2", "ab");
    row("new-at-end", "ab", "abxy", "2 0 2", "ab");
    row("gone-at-start", "abcd", "cd", "0 2 0", "cd");
    row("gone-inside", "abcd", "ad", "1 2 0", "ad");
    row("gone-at-end", "abcd", "ab", "2 2 0", "ab");
    row("repeated-line", "aaa", "aa", "2 1 0", "aa");
    row("nothing-in-common", "ab", "xyz", "0 2 3", "");
}

void TestLineChange::onlyLinesThatDifferChange()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(QString, lines);
    QFETCH(QString, kept);
    QTextDocument document;
    document.setPlainText(joined(before));
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        block.setUserData(new LineName(block.text()));
    const LineChange change = changeLines(&document, joined(after));
    QCOMPARE(document.toPlainText(), joined(after));
    QCOMPARE(QString("%1 %2 %3").arg(change.first).arg(change.removed).arg(change.added), lines);
    QString named;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const auto *data = static_cast<LineName *>(block.userData());
        if (data && data->name == block.text())
            named += data->name;
    }
    QCOMPARE(named, kept);
    QCOMPARE(document.isUndoAvailable(), before != after);
    document.undo();
    QCOMPARE(document.toPlainText(), joined(before));
    QVERIFY(!document.isUndoAvailable());
}

void TestLineChange::lineEndsAreNoDifference()
{
    QTextDocument document;
    document.setPlainText("a\nb\n\nc");
    document.setModified(false);
    changeLines(&document, QString("a\r\nb\r") + QChar(0x2029) + "c");
    QVERIFY(!document.isModified());
    changeLines(&document, "a\r\nb\r\r\nd\r");
    QCOMPARE(document.toPlainText(), QString("a\nb\n\nd\n"));
}

// Every pair of texts of up to four lines that are empty or "a".
void TestLineChange::anyTextBecomesAnyOther()
{
    QStringList texts;
    for (int lines = 1; lines <= 4; ++lines) {
        for (int bits = 0; bits < 1 << lines; ++bits) {
            QStringList each;
            for (int line = 0; line < lines; ++line)
                each << QString(bits >> line & 1 ? "a" : "");
            texts << each.join("\n");
        }
    }
    for (const QString &before : texts) {
        for (const QString &after : texts) {
            QTextDocument document;
            document.setPlainText(before);
            changeLines(&document, after);
            QCOMPARE(document.toPlainText(), after);
            document.undo();
            QCOMPARE(document.toPlainText(), before);
        }
    }
}

CORVANE_TEST_MAIN(TestLineChange)
#include "tst_linechange.moc"
