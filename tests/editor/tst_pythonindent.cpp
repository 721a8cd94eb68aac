// SPDX-License-Identifier: MIT
#include "editor/pythonindent.h"
#include "tests/editor/scriptedit.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

class PythonIndentTest : public QObject
{
    Q_OBJECT

private slots:
    void returnIndents_data();
    void returnIndents();
    void plainTextCopiesTheLineAbove_data();
    void plainTextCopiesTheLineAbove();
};

namespace {

void addColumns()
{
    columns<QString, QString, QString>("style", "given", "expected");
}

} // namespace

void PythonIndentTest::returnIndents_data()
{
    addColumns();
    row("no-auto-indent", "no-auto", "  if a:|", "  if a:\n|");
    row("no-smart-indent", "no-smart", "  if a:|", "  if a:\n  |");
    row("no-smart-indent-in-brackets", "no-smart", "  f(a,|", "  f(a,\n  |");
    row("colon", "", "  if a:|", "  if a:\n      |");
    row("colon-in-tabs", "tabs", "  if a:|", "  if a:\n  \t|");
    row("colon-before-a-comment", "", "if a: # b|", "if a: # b\n    |");
    row("colon-in-a-string", "", "  a = ':'|", "  a = ':'\n  |");
    row("text-behind-the-caret", "", "if a:| b", "if a:\n    | b");
    row("other-code-copies", "tabs", "    a = 1|", "    a = 1\n    |");
    row("backslash-copies", "", "  a = 1 + \\|", "  a = 1 + \\\n  |");
    row("blank-line-copies-its-own", "", "  if a:\n|", "  if a:\n\n|");
    row("comment-line-copies-its-own", "", "    if a:\n  # b|", "    if a:\n  # b\n  |");
    row("doc-string-copies", "", "'''\n  if a:|", "'''\n  if a:\n  |");
    row("open-parenthesis-aligns", "", "  f(a,|", "  f(a,\n    |");
    row("open-brace-aligns", "", "a = {'b': [1],|", "a = {'b': [1],\n     |");
    row("last-open-bracket-counts", "", "f(a, [b, (c)|", "f(a, [b, (c)\n      |");
    row("each-kind-is-counted-by-itself", "", "f(a]|", "f(a]\n  |");
    row("brackets-in-strings-do-not-align", "", "f('(')|", "f('(')\n|");
    row("closer-goes-back-to-its-opener", "", "  f(a,\n    b)|", "  f(a,\n    b)\n  |");
    row("inner-pairs-are-passed-over", "", " f(a,\n    (b), g(c))|", " f(a,\n    (b), g(c))\n |");
    row("lone-closing-brace", "", "  a = {\n      'b': 1\n      }|",
        "  a = {\n      'b': 1\n      }\n  |");
    row("unmatched-closer-copies", "", "  a)|", "  a)\n  |");
    row("signature-over-two-lines", "", "  def f(a,\n        b):|",
        "  def f(a,\n        b):\n      |");
    row("unmatched-signature", "", "  b):|", "  b):\n      |");
    row("slice-is-a-colon-too", "", "  a[1:|", "  a[1:\n      |");
    row("selection-is-replaced", "", "if a:[ b\nc] d", "if a:\n    | d");
}

void PythonIndentTest::returnIndents()
{
    QFETCH(QString, style);
    QFETCH(QString, given);
    QFETCH(QString, expected);
    QCOMPARE(afterReturn(PythonLanguage, given, style), expected);
}

void PythonIndentTest::plainTextCopiesTheLineAbove_data()
{
    addColumns();
    row("rewritten-in-spaces", "no-smart", "\t  a {|", "\t  a {\n      |");
    row("rewritten-in-tabs", "tabs", "      a|", "      a\n\t  |");
    row("only-the-line-above", "", "  a\n|", "  a\n\n|");
    row("no-auto-indent", "no-auto", "  a|", "  a\n|");
    row("selection-is-replaced", "", "  a[b\nc]d", "  a\n  |d");
}

void PythonIndentTest::plainTextCopiesTheLineAbove()
{
    QFETCH(QString, style);
    QFETCH(QString, given);
    QFETCH(QString, expected);
    QCOMPARE(afterReturn(TextLanguage, given, style), expected);
}

CORVANE_TEST_MAIN(PythonIndentTest)
#include "tst_pythonindent.moc"
