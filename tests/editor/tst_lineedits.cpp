// SPDX-License-Identifier: MIT
#include "editor/lineedits.h"
#include "tests/editor/scriptedit.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

class LineEditsTest : public QObject
{
    Q_OBJECT

private slots:
    void widthsAreVisual();
    void linesAreEdited_data();
    void linesAreEdited();
    void deletingTwiceIsTwoStepsToUndo();
};

namespace {

struct Edit
{
    const char *name;
    void (*perform)(QTextCursor &cursor, const IndentStyle &style);
};

const Edit edits[] = {
    {"tab", increaseIndent},
    {"backtab", decreaseIndent},
    {"duplicate", [](QTextCursor &cursor, const IndentStyle &) { duplicateText(cursor); }},
    {"delete", [](QTextCursor &cursor, const IndentStyle &) { deleteLines(cursor); }},
    {"spaces", convertTabsToSpaces},
    {"home",
     [](QTextCursor &cursor, const IndentStyle &) { cursor.setPosition(homePosition(cursor)); }}};

// The tag begins with the edit's name.
void row(const char *tag, const char *style, const char *given, const char *expected)
{
    QTest::newRow(tag) << QString::fromLatin1(tag).section(QLatin1Char('-'), 0, 0)
                       << QString::fromLatin1(style) << QString::fromLatin1(given)
                       << QString::fromLatin1(expected);
}

void tabRows()
{
    row("tab-fills-to-next-stop", "", "ab|c", "ab  |c");
    row("tab-a-stop-leads-to-the-next", "", "abcd|", "abcd    |");
    row("tab-columns-are-visual", "", "\ta|", "\ta   |");
    row("tab-selection-in-a-line-is-replaced", "", "a[bc]d", "a   |d");
    row("tab-is-inserted", "tabs", "ab|c", "ab\t|c");
    row("tab-rewrites-what-leads", "tabs", "  \t  |a", "\t\t|a");
    row("tab-inside-leading-white-space", "tabs", " |   a", "\t\t|a");
    row("tab-in-normal-white-space", "tabs", "\t|\ta", "\t\t|\ta");
    row("tab-form-feed-is-not-rewritten", "tabs", "  \f|a", "  \f\t|a");
    row("tab-replaces-selection", "tabs", "  [  a]b", "\t|b");
    row("tab-lines-are-indented", "", "[a\n b]", "    [a\n     b]");
    row("tab-backward-selection", "", "a]b\nc[d", "    a]b\n    c[d");
    row("tab-last-line-at-its-start-is-left-out", "", "a[b\n]c", "    a[b\n]c");
    row("tab-empty-lines-stay", "", "[a\n\n  \nb]", "    [a\n\n      \n    b]");
    row("tab-lines-in-tabs", "tabs", "[a\n\tb]", "\t[a\n\t\tb]");
    row("tab-lines-are-rewritten-in-tabs", "tabs", "   [a\n    b]", "\t   [a\n\t\tb]");
    row("tab-lines-are-rewritten-in-spaces", "", " \ta[a\n\t b]", "        a[a\n         b]");
    row("tab-only-empty-lines", "", "[\n\n]", "[\n\n]");
}

void backtabRows()
{
    row("backtab-to-the-last-stop", "", "      a|", "    a|");
    row("backtab-a-whole-step", "", "    a|", "a|");
    row("backtab-caret-inside-white-space", "", "     |   a", " |   a");
    row("backtab-white-space-line", "", "      |", "    |");
    row("backtab-stops-at-a-tab", "", "  \ta|", "\ta|");
    row("backtab-tab-stays-in-spaces-mode", "", "\ta|", "\ta|");
    row("backtab-nothing-to-remove", "", "a|", "a|");
    row("backtab-selection-in-a-line-stays", "", "     a[bc]", "    a[bc]");
    row("backtab-one-tab", "tabs", "\t\ta|", "\ta|");
    row("backtab-spaces-stay-in-tabs-mode", "tabs", "    a|", "    a|");
    row("backtab-lines-lose-up-to-a-step", "", "[      a\n  b\n\tc\nd]", "[  a\nb\n\tc\nd]");
    row("backtab-lines-lose-a-tab", "tabs", "a[a\n\t\tb\n  c]", "a[a\n\tb\n  c]");
    row("backtab-last-line-at-its-start-is-left-out", "", "  a[\n]  b", "a[\n]  b");
}

void duplicateRows()
{
    row("duplicate-line", "", "a\nb|c\nd", "a\nb|c\nbc\nd");
    row("duplicate-empty-line", "", "|", "|\n");
    row("duplicate-caret-at-the-end", "", "a|", "a|\na");
    row("duplicate-selection", "", "a[bc]d", "a[bc]bcd");
    row("duplicate-backward-selection-of-lines", "", "a]b\nc[d", "a]b\nc[b\ncd");
}

void deleteRows()
{
    row("delete-line", "", "a\nb|c\nd", "a\n|d");
    row("delete-last-line", "", "a\nb|c", "a\n|");
    row("delete-selected-lines", "", "a\nb[c\nd]e\nf", "a\n|f");
    row("delete-line-where-the-selection-ends", "", "a]a\n[b\nc", "|c");
    row("delete-empty-last-line", "", "a\n|", "a\n|");
}

void spacesRows()
{
    row("spaces-tabs-reach-their-stops", "", "\ta\tbc\t\td|", "    a   bc      d|");
    row("spaces-caret-before-a-tab", "", "a|\tb\nc", "a|   b\nc");
    row("spaces-caret-between-tabs", "", "\t|\ta", "    |    a");
    row("spaces-selection-over-lines", "", "\ta]\tb\nc\t[\td", "    a]   b\nc   [    d");
    row("spaces-no-tabs", "", "a [b\nc]", "a [b\nc]");
}

void homeRows()
{
    row("home-behind-the-text", "", "a\n    b|", "a\n    |b");
    row("home-at-the-text", "", "    |b", "|    b");
    row("home-at-the-start", "", "|\t b", "\t |b");
    row("home-inside-the-white-space", "", "  |  b", "    |b");
    row("home-no-white-space", "", "ab|", "|ab");
    row("home-only-white-space", "", "  |\na", "|  \na");
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

void LineEditsTest::linesAreEdited_data()
{
    columns<QString, QString, QString, QString>("edit", "style", "given", "expected");
    tabRows();
    backtabRows();
    duplicateRows();
    deleteRows();
    spacesRows();
    homeRows();
}

void LineEditsTest::linesAreEdited()
{
    QFETCH(QString, edit);
    QFETCH(QString, style);
    QFETCH(QString, given);
    QFETCH(QString, expected);
    ScriptEdit script(TextLanguage, given);
    const QString result = script.after([&](QTextCursor &cursor) {
        for (const Edit &known : edits) {
            if (edit == QLatin1String(known.name))
                known.perform(cursor, styleOf(style));
        }
    });
    QCOMPARE(result, expected);
}

void LineEditsTest::deletingTwiceIsTwoStepsToUndo()
{
    ScriptEdit script(TextLanguage, QString::fromLatin1("|a\nb\nc"));
    deleteLines(script.cursor);
    deleteLines(script.cursor);
    script.document.undo();
    QCOMPARE(script.document.toPlainText(), QString::fromLatin1("b\nc"));
}

CORVANE_TEST_MAIN(LineEditsTest)
#include "tst_lineedits.moc"
