// SPDX-License-Identifier: MIT
#include "editor/lineedits.h"
#include "tests/editor/scriptedit.h"
#include "tests/support/testmain.h"

class LineEditsTest : public QObject
{
    Q_OBJECT

private slots:
    void widthsAreVisual();
    void tabIndents_data();
    void tabIndents();
    void backtabUnindents_data();
    void backtabUnindents();
    void linesAreDuplicated_data();
    void linesAreDuplicated();
    void linesAreDeleted_data();
    void linesAreDeleted();
    void deletingTwiceIsTwoStepsToUndo();
    void tabsBecomeSpaces_data();
    void tabsBecomeSpaces();
    void homeTogglesBetweenTextAndLineStart_data();
    void homeTogglesBetweenTextAndLineStart();
};

namespace {

void addColumns(bool withStyle = false)
{
    if (withStyle)
        QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("expected");
}

void row(const char *tag, const char *given, const char *expected)
{
    QTest::newRow(tag) << QString::fromLatin1(given) << QString::fromLatin1(expected);
}

void row(const char *tag, const char *style, const char *given, const char *expected)
{
    QTest::newRow(tag) << QString::fromLatin1(style) << QString::fromLatin1(given)
                       << QString::fromLatin1(expected);
}

template <typename Edit>
QString after(const QString &given, Edit edit)
{
    return ScriptEdit(TextLanguage, given).after(edit);
}

} // namespace

void LineEditsTest::widthsAreVisual()
{
    IndentStyle style;
    QCOMPARE(style.width(QString::fromLatin1(" \ta\t")), 8);
    QCOMPARE(style.unit(), QString::fromLatin1("    "));
    style.replaceTabs = false;
    QCOMPARE(style.unit(), QString::fromLatin1("\t"));
    QCOMPARE(style.rewritten(QString::fromLatin1("  \t   \t  ")), QString::fromLatin1("\t\t  "));
}

void LineEditsTest::tabIndents_data()
{
    addColumns(true);
    row("fills-to-next-stop", "", "ab|c", "ab  |c");
    row("a-stop-leads-to-the-next", "", "abcd|", "abcd    |");
    row("columns-are-visual", "", "\ta|", "\ta   |");
    row("selection-in-a-line-is-replaced", "", "a[bc]d", "a   |d");
    row("tab-is-inserted", "tabs", "ab|c", "ab\t|c");
    row("tab-rewrites-what-leads", "tabs", "  \t  |a", "\t\t|a");
    row("tab-inside-leading-white-space", "tabs", " |   a", "\t\t|a");
    row("tab-in-normal-white-space", "tabs", "\t|\ta", "\t\t|\ta");
    row("form-feed-is-not-rewritten", "tabs", "  \f|a", "  \f\t|a");
    row("tab-replaces-selection", "tabs", "  [  a]b", "\t|b");
    row("lines-are-indented", "", "[a\n b]", "    [a\n     b]");
    row("backward-selection", "", "a]b\nc[d", "    a]b\n    c[d");
    row("last-line-at-its-start-is-left-out", "", "a[b\n]c", "    a[b\n]c");
    row("empty-lines-stay", "", "[a\n\n  \nb]", "    [a\n\n      \n    b]");
    row("lines-in-tabs", "tabs", "[a\n\tb]", "\t[a\n\t\tb]");
    row("lines-are-rewritten-in-tabs", "tabs", "   [a\n    b]", "\t   [a\n\t\tb]");
    row("lines-are-rewritten-in-spaces", "", " \ta[a\n\t b]", "        a[a\n         b]");
    row("only-empty-lines", "", "[\n\n]", "[\n\n]");
}

void LineEditsTest::tabIndents()
{
    QFETCH(QString, style);
    QFETCH(QString, given);
    QFETCH(QString, expected);
    const QString result =
        after(given, [&](QTextCursor &cursor) { increaseIndent(cursor, styleOf(style)); });
    QCOMPARE(result, expected);
}

void LineEditsTest::backtabUnindents_data()
{
    addColumns(true);
    row("to-the-last-stop", "", "      a|", "    a|");
    row("a-whole-step", "", "    a|", "a|");
    row("caret-inside-white-space", "", "     |   a", " |   a");
    row("white-space-line", "", "      |", "    |");
    row("stops-at-a-tab", "", "  \ta|", "\ta|");
    row("tab-stays-in-spaces-mode", "", "\ta|", "\ta|");
    row("nothing-to-remove", "", "a|", "a|");
    row("selection-in-a-line-stays", "", "     a[bc]", "    a[bc]");
    row("one-tab", "tabs", "\t\ta|", "\ta|");
    row("spaces-stay-in-tabs-mode", "tabs", "    a|", "    a|");
    row("lines-lose-up-to-a-step", "", "[      a\n  b\n\tc\nd]", "[  a\nb\n\tc\nd]");
    row("lines-lose-a-tab", "tabs", "a[a\n\t\tb\n  c]", "a[a\n\tb\n  c]");
    row("last-line-at-its-start-is-left-out", "", "  a[\n]  b", "a[\n]  b");
}

void LineEditsTest::backtabUnindents()
{
    QFETCH(QString, style);
    QFETCH(QString, given);
    QFETCH(QString, expected);
    const QString result =
        after(given, [&](QTextCursor &cursor) { decreaseIndent(cursor, styleOf(style)); });
    QCOMPARE(result, expected);
}

void LineEditsTest::linesAreDuplicated_data()
{
    addColumns();
    row("line", "a\nb|c\nd", "a\nb|c\nbc\nd");
    row("empty-line", "|", "|\n");
    row("caret-at-the-end", "a|", "a|\na");
    row("selection", "a[bc]d", "a[bc]bcd");
    row("backward-selection-of-lines", "a]b\nc[d", "a]b\nc[b\ncd");
}

void LineEditsTest::linesAreDuplicated()
{
    QFETCH(QString, given);
    QFETCH(QString, expected);
    QCOMPARE(after(given, duplicateText), expected);
}

void LineEditsTest::linesAreDeleted_data()
{
    addColumns();
    row("line", "a\nb|c\nd", "a\n|d");
    row("last-line", "a\nb|c", "a\n|");
    row("selected-lines", "a\nb[c\nd]e\nf", "a\n|f");
    row("line-where-the-selection-ends", "a]a\n[b\nc", "|c");
    row("empty-last-line", "a\n|", "a\n|");
}

void LineEditsTest::linesAreDeleted()
{
    QFETCH(QString, given);
    QFETCH(QString, expected);
    QCOMPARE(after(given, deleteLines), expected);
}

void LineEditsTest::deletingTwiceIsTwoStepsToUndo()
{
    ScriptEdit script(TextLanguage, QString::fromLatin1("|a\nb\nc"));
    deleteLines(script.cursor);
    deleteLines(script.cursor);
    script.document.undo();
    QCOMPARE(script.document.toPlainText(), QString::fromLatin1("b\nc"));
}

void LineEditsTest::tabsBecomeSpaces_data()
{
    addColumns();
    row("tabs-reach-their-stops", "\ta\tbc\t\td|", "    a   bc      d|");
    row("caret-before-a-tab", "a|\tb\nc", "a|   b\nc");
    row("caret-between-tabs", "\t|\ta", "    |    a");
    row("selection-over-lines", "\ta]\tb\nc\t[\td", "    a]   b\nc   [    d");
    row("no-tabs", "a [b\nc]", "a [b\nc]");
}

void LineEditsTest::tabsBecomeSpaces()
{
    QFETCH(QString, given);
    QFETCH(QString, expected);
    const QString result =
        after(given, [](QTextCursor &cursor) { convertTabsToSpaces(cursor, IndentStyle()); });
    QCOMPARE(result, expected);
}

void LineEditsTest::homeTogglesBetweenTextAndLineStart_data()
{
    addColumns();
    row("behind-the-text", "a\n    b|", "a\n    |b");
    row("at-the-text", "    |b", "|    b");
    row("at-the-start", "|\t b", "\t |b");
    row("inside-the-white-space", "  |  b", "    |b");
    row("no-white-space", "ab|", "|ab");
    row("only-white-space", "  |\na", "|  \na");
}

void LineEditsTest::homeTogglesBetweenTextAndLineStart()
{
    QFETCH(QString, given);
    QFETCH(QString, expected);
    const QString result =
        after(given, [](QTextCursor &cursor) { cursor.setPosition(homePosition(cursor)); });
    QCOMPARE(result, expected);
}

CORVANE_TEST_MAIN(LineEditsTest)
#include "tst_lineedits.moc"
