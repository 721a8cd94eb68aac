// SPDX-License-Identifier: MIT
#include "editor/melindent.h"
#include "tests/editor/scriptedit.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

class MelIndentTest : public QObject
{
    Q_OBJECT

private slots:
    void returnIndents_data();
    void returnIndents();
    void bracesFindTheirColumn_data();
    void bracesFindTheirColumn();
    void otherBracesAreLeftToTheEditor();
};

namespace {

void closingBraceRows()
{
    row("brace-is-closed", "", "  f {|", "  f {\n      |\n  }");
    row("brace-is-closed-in-tabs", "tabs", "    f {|", "    f {\n\t\t|\n\t}");
    row("closing-is-off", "no-closing", "  f {|", "  f {\n      |");
    row("closing-without-smart-indent", "no-smart", "  f {|", "  f {\n  |\n  }");
    row("closing-without-auto-indent", "no-auto", "  f {|", "  f {\n|\n  }");
    row("text-behind-the-brace-stays", "", "f {|}", "f {\n    |}");
    row("white-space-behind-the-brace-goes-down", "", "f {|  ", "f {\n    |\n}  ");
    row("blank-between-brace-and-caret", "", "f { |", "f { \n    |");
    row("comment-start-in-a-string-counts", "", "f \"//\" {|", "f \"//\" {\n    |");
    row("comment-before-the-brace", "", "f /* */ {|", "f /* */ {\n    |");
    row("brace-in-a-string", "", "  print \"{|", "  print \"{\n      |\n  }");
    row("condition-over-two-lines", "", "if (a &&\n    b) {|", "if (a &&\n    b) {\n    |\n}");
    row("lone-brace-below-its-condition", "", "if (a &&\n    b)\n  {|",
        "if (a &&\n    b)\n  {\n    |\n}");
    row("condition-on-a-line-of-its-own", "", "if\n  (a)\n  {|", "if\n  (a)\n  {\n    |\n}");
    row("nothing-above-the-condition", "", "\n  (a) {|", "\n  (a) {\n      |\n  }");
    row("braces-in-strings-before-it", "", "f(\na \"{\" + \"(\" ) {|",
        "f(\na \"{\" + \"(\" ) {\n    |\n}");
    row("brace-behind-else", "", "  else {|", "  else {\n      |\n  }");
    row("brackets-match-by-column", "", "f (a)(\n  b (c) + (d)) {|",
        "f (a)(\n  b (c) + (d)) {\n    |\n}");
}

void behindBraceRows()
{
    row("behind-closing-brace", "", "  if (a) {\n     b;\n    }|",
        "  if (a) {\n     b;\n    }\n  |");
    row("behind-closing-brace-with-lone-brace", "", "  if (a)\n {\n     b;\n    }|",
        "  if (a)\n {\n     b;\n    }\n  |");
    row("behind-nested-closing-braces", "", " a {\n  b {\n   c;\n } }|",
        " a {\n  b {\n   c;\n } }\n |");
    row("behind-closing-brace-of-long-condition", "", "if (a &&\n    b)\n{\n    c;\n}|",
        "if (a &&\n    b)\n{\n    c;\n}\n|");
    row("behind-else-block", "", "  if (a) {\n  } else {\n    }|",
        "  if (a) {\n  } else {\n    }\n  |");
    row("behind-block-on-one-line", "", "  a { b; }|", "  a { b; }\n  |");
    row("comment-lines-are-passed-over", "", " a\n  // {\n{\n}|", " a\n  // {\n{\n}\n |");
    row("nothing-above-the-closed-block", "", "\n  (a) {\n }|", "\n  (a) {\n }\n |");
    row("stray-closing-brace-copies", "", "a;\n  }|", "a;\n  }\n  |");
}

void statementRows()
{
    row("empty-document", "", "|", "\n|");
    row("behind-statement", "", "  a;|", "  a;\n  |");
    row("body-without-braces-ends", "", "  if (a)\n    b;|", "  if (a)\n    b;\n  |");
    row("body-ends-behind-another-statement", "", "x;\n  if (a)\n    b;|",
        "x;\n  if (a)\n    b;\n  |");
    row("comments-inside-a-statement", "", "  a = b +\n// c\n    d;|",
        "  a = b +\n// c\n    d;\n  |");
    row("statement-goes-on", "", "a;\n  $b =|", "a;\n  $b =\n      |");
    row("second-line-goes-on", "", "a;\n  $b =\n      c +|", "a;\n  $b =\n      c +\n      |");
    row("first-statement-goes-on", "", "  $b =|", "  $b =\n      |");
    row("unit-is-a-tab", "tabs", "  $b =|", "  $b =\n  \t|");
    row("condition-without-brace", "", "a;\nif (b &&\n    c)|", "a;\nif (b &&\n    c)\n    |");
    row("condition-below-its-keyword", "", "a;\n  if\n (b)|", "a;\n  if\n (b)\n      |");
    row("unmatched-parenthesis", "", "a;\n  b)|", "a;\n  b)\n      |");
    row("open-parenthesis-aligns", "", "  f(a,|", "  f(a,\n    |");
    row("open-square-bracket-aligns", "", "f(a)[b(c),|", "f(a)[b(c),\n     |");
    row("alignment-keeps-tabs", "", "\tf(\ta(b),|", "\tf(\ta(b),\n\t  |");
    row("alignment-is-by-visual-column", "", "f\t(a,|", "f\t(a,\n     |");
    row("open-braces-do-not-align", "", "a;\n$b = {1,|", "a;\n$b = {1,\n    |");
    row("loop-head-is-a-statement", "", "for ($i = 0;|", "for ($i = 0;\n|");
}

void copyRows()
{
    row("inside-a-comment", "no-auto no-smart", "  /* a|", "  /* a\n  |");
    row("comment-keeps-characters", "tabs", "/*\n    a|", "/*\n    a\n    |");
    row("behind-a-comment-line", "", "a;\n  // {|", "a;\n  // {\n  |");
    row("behind-an-empty-line", "", "  f {\n|", "  f {\n\n  |");
    row("white-space-is-no-empty-line", "", "  f;\n    |", "  f;\n    \n    |");
    row("copy-is-rewritten", "tabs", "      // a|", "      // a\n\t  |");
    row("no-smart-indent", "no-smart", "if (a)|", "if (a)\n|");
    row("no-auto-indent", "no-auto", "  a;|", "  a;\n|");
    row("continued-line", "", "  a \\|", "  a \\\n  |");
    row("division-at-the-end", "", "  $a = b /|", "  $a = b /\n  |");
    row("product-at-the-end", "", "  $a = b * c|", "  $a = b * c\n  |");
    row("caret-before-the-text", "", "  |a;", "  \n  |a;");
    row("selection-is-replaced", "", "  f([a;\n    b])", "  f(\n    |)");
    row("selection-that-opens-a-comment", "", "  a;\n    [x] /*\n*/", "  a;\n    \n    | /*\n*/");
}

} // namespace

void MelIndentTest::returnIndents_data()
{
    columns<QString, QString, QString>("style", "given", "expected");
    closingBraceRows();
    behindBraceRows();
    statementRows();
    copyRows();
}

void MelIndentTest::returnIndents()
{
    QFETCH(QString, style);
    QFETCH(QString, given);
    QFETCH(QString, expected);
    QCOMPARE(afterReturn(MelLanguage, given, style), expected);
}

void MelIndentTest::bracesFindTheirColumn_data()
{
    columns<QString, QString, QString, QString>("style", "given", "brace", "expected");
    const auto braceRow = [](const char *tag, const char *style, const char *given,
                             const char *expected) {
        const QString result = QString::fromLatin1(expected);
        QTest::newRow(tag) << QString::fromLatin1(style) << QString::fromLatin1(given)
                           << QString(result.at(result.indexOf(QLatin1Char('|')) - 1)) << result;
    };
    braceRow("block-is-closed", "", "  if (a) {\n     b;\n     |", "  if (a) {\n     b;\n  }|");
    braceRow("inner-blocks-are-passed-over", "", " a {\n  b {\n  }\n|", " a {\n  b {\n  }\n }|");
    braceRow("text-behind-stays", "", " a {\n   |   b;", " a {\n }|b;");
    braceRow("long-condition", "", "if (a &&\n    b) {\n    |", "if (a &&\n    b) {\n}|");
    braceRow("brace-in-a-string-is-none", "", " a {\n  b \"{\";\n|", " a {\n  b \"{\";\n }|");
    braceRow("nothing-to-close", "", "  a;\n\n|", "  a;\n\n  }|");
    braceRow("closing-in-tabs", "tabs", "      a {\n|", "      a {\n\t  }|");
    braceRow("block-is-opened", "", "  if (a)\n\n      |", "  if (a)\n\n  {|");
    braceRow("opening-in-tabs", "tabs", "      a\n|  ", "      a\n\t  {|");
    braceRow("selection-is-replaced", "", " a {\n   [b;\n  c];", " a {\n }|;");
}

void MelIndentTest::bracesFindTheirColumn()
{
    QFETCH(QString, style);
    QFETCH(QString, given);
    QFETCH(QString, brace);
    QFETCH(QString, expected);
    bool isTaken = false;
    ScriptEdit script(MelLanguage, given);
    const QString result = script.after(
        [&](QTextCursor &cursor) { isTaken = typeMelBrace(cursor, brace.at(0), styleOf(style)); });
    QCOMPARE(result, expected);
    QVERIFY(isTaken);
}

void MelIndentTest::otherBracesAreLeftToTheEditor()
{
    const char *const drawings[] = {"a {\n  |b {", "a {\n  b|{", "a {\n  |  b{", "  a|}", "a[b]}"};
    for (const char *drawn : drawings) {
        ScriptEdit script(MelLanguage, QString::fromLatin1(drawn));
        const QChar brace = QLatin1Char(drawn[qstrlen(drawn) - 1]);
        QVERIFY2(!typeMelBrace(script.cursor, brace, IndentStyle()), drawn);
        QCOMPARE(drawing(script.cursor), QString::fromLatin1(drawn));
        QVERIFY(!script.document.isUndoAvailable());
    }
}

CORVANE_TEST_MAIN(MelIndentTest)
#include "tst_melindent.moc"
