// SPDX-License-Identifier: MIT
#include "compat/pattern.h"
#include "compat/text.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

class PatternTest : public QObject
{
    Q_OBJECT

private slots:
    void findsTheFirstMatchFromAPosition_data();
    void findsTheFirstMatchFromAPosition();
    void capturesGroupsAndForgetsThemWithoutAMatch();
    void exactMatchTakesTheWholeText();
    void splittingDropsEmptyParts();
};

void PatternTest::findsTheFirstMatchFromAPosition_data()
{
    columns<QString, QString, int, int, int>("pattern", "text", "from", "index", "length");

    const QString umlaut = QString::fromUtf8("\xc3\xa4pfel x");
    row("word", "x+", "aaxxb", 0, 2, 2);
    row("from-behind-the-first", "x", "xax", 1, 2, 1);
    row("none", "x", "abc", 0, -1, -1);
    row("caret-only-at-index-0", "^b", "ab", 1, -1, -1);
    row("caret-not-after-a-line-break", "^b", "a\nb", 0, -1, -1);
    row("dollar-only-at-the-end", "a$", "a\na", 0, 2, 1);
    row("dollar-not-before-a-last-line-break", "a$", "a\n", 0, -1, -1);
    row("dollar-in-a-class", "[a$]+", "b$a", 0, 1, 2);
    row("escaped-dollar", "\\$\\w", "a$b", 0, 1, 2);
    row("dot-takes-a-line-break", "a.b", "a\nb", 0, 0, 3);
    row("word-class-follows-unicode", "\\w+", umlaut, 0, 0, 5);
    row("word-border-follows-unicode", "\\bpfel", umlaut, 0, -1, -1);
}

void PatternTest::findsTheFirstMatchFromAPosition()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);
    QFETCH(int, from);
    Pattern compiled(pattern);
    QTEST(compiled.indexIn(text, from), "index");
    QTEST(compiled.matchedLength(), "length");
}

void PatternTest::capturesGroupsAndForgetsThemWithoutAMatch()
{
    Pattern pattern(QLatin1String("(\\w+)=(\\d+)"));
    QCOMPARE(pattern.indexIn(QLatin1String("  tab=12;")), 2);
    QCOMPARE(pattern.captured(1), QString::fromLatin1("tab"));
    QCOMPARE(pattern.captured(2), QString::fromLatin1("12"));
    QCOMPARE(pattern.captured(3), QString());
    pattern.indexIn(QLatin1String("nothing"));
    QCOMPARE(pattern.matchedLength(), -1);
}

void PatternTest::exactMatchTakesTheWholeText()
{
    Pattern pattern(QLatin1String("a|ab"), Qt::CaseInsensitive);
    QVERIFY(pattern.exactMatch(QLatin1String("AB")));
    QVERIFY(!pattern.exactMatch(QLatin1String("ab\n")));
    QVERIFY(!pattern.exactMatch(QLatin1String("xab")));
    QVERIFY(!pattern.exactMatch(QLatin1String("abx")));
    QCOMPARE(pattern.matchedLength(), -1);
}

void PatternTest::splittingDropsEmptyParts()
{
    const QStringList parts = compat::nonEmptyParts(QLatin1String(";a;;b;"), QLatin1Char(';'));
    QCOMPARE(parts, words("a b"));
}

CORVANE_TEST_MAIN(PatternTest)
#include "tst_pattern.moc"
