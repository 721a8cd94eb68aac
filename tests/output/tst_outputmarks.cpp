// SPDX-License-Identifier: MIT
#include "output/outputmarks.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QTextDocument>

namespace {

const char *categoryLetter(OutputText category)
{
    switch (category) {
    case OutputText::Errors:
        return "E";
    case OutputText::Warnings:
        return "W";
    case OutputText::Results:
        return "R";
    default:
        return "m";
    }
}

// "E0-12 R20-30": category, start, end, in the order of the list.
QString described(const std::vector<OutputMark> &marks)
{
    QStringList words;
    for (const OutputMark &mark : marks)
        words << QString::fromLatin1("%1%2-%3")
                     .arg(QLatin1String(categoryLetter(mark.category)))
                     .arg(mark.start)
                     .arg(mark.end);
    return words.join(QLatin1String(" "));
}

} // namespace

class OutputMarksTest : public QObject
{
    Q_OBJECT

private slots:
    void marksMessages_data();
    void marksMessages();
    void marksWholeWords_data();
    void marksWholeWords();
};

void OutputMarksTest::marksMessages_data()
{
    columns<QString, int, int, QString>("text", "start", "end", "marks");

    row("closed", "// Error: a //\nb", 0, 16, "E0-15");
    row("blank-before-the-break", "// Error: a // \nb", 0, 17, "E0-16");
    row("two-blanks-do-not-close", "// Error: a //  \nb", 0, 18, "E0-18");
    row("python-form", "# Warning: a # \n# Result: b #\n", 0, 30, "W0-16 R16-30");
    row("python-form-not-closed-by-slashes", "# Error: a //\nb", 0, 15, "E0-15");
    row("several-lines", "x\n// Error: a\nb\nc //\nd", 0, 22, "E2-21");
    row("errors-before-results", "// Result: 1 //\n// Error: a //\n", 0, 31, "E16-31 R0-16");
    row("inside-a-line", "x // Error: a //\n", 0, 17, "");
    row("inside-a-line-hides-the-next", "x // Error: a\n// Error: b //\n// Error: c //\n", 0, 44,
        "E29-44");
    row("closing-at-the-last-line-without-break", "// Error: a //", 0, 14, "E0-14");
    row("unclosed-to-the-region-end", "// Error: a\nb\nc\n", 0, 13, "E0-13");
    row("closed-behind-the-region-end", "// Error: a\nb\nc //\nd", 0, 5, "E0-19");
    row("begins-before-the-region", "// Error: a\n// Error: b //\n", 3, 20, "E12-27");
    row("begins-at-the-region-end", "a\n// Error: b //\n", 0, 2, "");
    row("other-case", "// error: a //\n", 0, 15, "");
    row("empty-message", "// Error: //\n", 0, 13, "E0-13");
}

void OutputMarksTest::marksMessages()
{
    QFETCH(QString, text);
    QFETCH(int, start);
    QFETCH(int, end);
    QTextDocument document(text);
    QTEST(described(OutputRegion(document, start, end).messages()), "marks");
}

void OutputMarksTest::marksWholeWords_data()
{
    columns<QString, QString, int, int, QString>("text", "word", "start", "end", "marks");

    row("whole-words-only", "ball ball1 my_ball (ball)", "ball", 0, 25, "m0-4 m20-24");
    row("case-matters", "Ball ball", "ball", 0, 9, "m5-9");
    row("hyphen", "a-b a-b-c xa-b", "a-b", 0, 14, "m0-3 m4-7");
    row("umlaut-is-a-letter", QString::fromUtf8("ball\xc3\xa4 ball"), "ball", 0, 10, "m6-10");
    row("two-words", "a b a b", "a b", 0, 7, "");
    row("over-two-lines", "a\na", QString(QChar(QChar::ParagraphSeparator)), 0, 3, "");
    row("empty", "a", "", 0, 1, "");
    row("region-end-included", "a a a", "a", 1, 4, "m2-3 m4-5");
    row("overlapping-tries", "aaa aa", "aa", 0, 6, "m4-6");
}

void OutputMarksTest::marksWholeWords()
{
    QFETCH(QString, text);
    QFETCH(QString, word);
    QFETCH(int, start);
    QFETCH(int, end);
    QTextDocument document(text);
    QTEST(described(OutputRegion(document, start, end).occurrences(word)), "marks");
}

CORVANE_TEST_MAIN(OutputMarksTest)
#include "tst_outputmarks.moc"
