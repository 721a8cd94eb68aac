// SPDX-License-Identifier: MIT
#include "analysis/pythonparser.h"
#include "preferences/preferences.h"
#include "tests/analysis/parserlisting.h"
#include "tests/support/datatable.h"
#include "tests/support/lineartime.h"
#include "tests/support/testmain.h"

class PythonParserTest : public QObject
{
    Q_OBJECT

private slots:
    void declarationsAreListed_data();
    void declarationsAreListed();
    void structureIsChecked_data();
    void structureIsChecked();
    void indentsAreChecked_data();
    void indentsAreChecked();
    void commentsAndDocStringsYieldNotes_data();
    void commentsAndDocStringsYieldNotes();
    void preferencesSilenceDiagnostics();
    void eachRunStartsAfresh();
    void timeIsLinear_data();
    void timeIsLinear();
    void timeIsLinearInDistinctNames();
};

namespace {

QString parserSlowness(const QString &text)
{
    PythonParser parser;
    return slowness(text, [&parser](const QString &part) { parser.parse(part, QString()); });
}

} // namespace

void PythonParserTest::declarationsAreListed_data()
{
    columns<QString, QString>("text", "items");
    row("import", "import a.b", "4 a.b 7 0");
    row("two-imports", "import abc, a # no", "4 abc 7 0; 4 a 7 0");
    row("names-within-names", "import abcd, bc, cd, bcd, abc, x, abcd",
        "4 abcd 7 0; 4 bc 8 0; 4 cd 9 0; 4 bcd 8 0; 4 abc 7 0; 4 x 31 0; 4 abcd 7 0");
    row("name-over-the-end-of-another", "from m import aab, ab.c, b, *, ab",
        "6 aab (m) 14 0; 6 ab.c (m) 19 0; 6 b (m) 16 0; 6 * (m) 28 0; 6 ab (m) 15 0");
    row("import-as", "import a.b as c # d", "5 c = a.b 14 0");
    row("alias-on-the-second", "import a, b as c", "");
    row("alias-on-both", "import a as b, c", "");
    row("from", "from maya import cmds", "6 cmds (maya) 17 0");
    row("from-two", "from a.b import c, d", "6 c (a.b) 16 0; 6 d (a.b) 19 0");
    row("from-star", "from a import *", "6 * (a) 14 0");
    row("from-bracket", "from a import (b,\n  c)", "6 (b (a) 14 0");
    row("from-two-with-a-bracket", "from a import (b, c)", "");
    row("relative-import", "from . import a", "6 a (.) 14 0");
    row("import-needs-a-blank", "import\nimporta\nfroma import b", "");
    row("function", "def f(a): pass", "8 f 4 0");
    row("class", "class A: pass\nclass\tB(A): pass", "11 A 6 0; 11 B 20 0");
    row("method", "class A:\n    def f(self):\n        pass\n    def g(self): pass",
        "11 A 6 0; 8 f 17 1; 8 g 47 1");
    row("no-name", "def (a): pass\nclass : pass\ndefine = classy = 1", "");
    row("static", "@staticmethod\ndef f(): pass", "9 f 18 0");
    row("class-method", "@classmethod\n\ndef f(): pass", "10 f 18 0");
    row("nearer-decorator-wins",
        "@classmethod\n@staticmethod\ndef f(): pass\n"
        "@staticmethod\n@classmethod\ndef g(): pass",
        "9 f 31 0; 10 g 72 0");
    row("decorator-as-written", "@ staticmethod\ndef f(): pass\n@staticmethod \ndef g(): pass",
        "8 f 19 0; 8 g 48 0");
    row("comment-drops-a-decorator", "@staticmethod\n# no\ndef f(): pass", "8 f 23 0");
    row("code-drops-a-decorator", "@staticmethod\nx\ndef f(): pass", "8 f 20 0");
    row("main", "if __name__ == \"__main__\":\n    x", "7 __main__ 16 0");
    row("main-in-single-quotes", "x = 1\nif  __name__  ==  '__main__': x", "7 __main__ 25 0");
    row("main-in-mixed-quotes", "if __name__ == \"__main__': x", "");
    row("not-within-brackets", "x = [\nclassy,\nimports, 1]", "");
    row("margin-closes-blocks", "class A:\n    x\ndef f(): pass", "11 A 6 0; 8 f 19 0");
    row("not-in-doc-strings", "'''\ndef f(): pass\n'''", "");
}

void PythonParserTest::declarationsAreListed()
{
    QFETCH(QString, text);
    QFETCH(QString, items);
    PythonParser parser;
    parser.parse(text, QString());
    QCOMPARE(outlineListing(parser), items);
}

void PythonParserTest::structureIsChecked_data()
{
    columns<QString, QString>("text", "errors");
    row("fine", "x = {1: [2, (3)]}\ny = '#'", "");
    row("strays", "x)\ny]", "Unexpected ')' 1 2");
    row("stray-bracket", "]", "Unexpected ']' 0 1");
    row("stray-brace", "}", "Unexpected '}' 0 1");
    row("paren-open-at-a-def", "x = (1\n\ndef f(): pass", "Expected a ')' 6 6");
    row("brace-first", "x = ({[1\nimport a", "Expected a '}' 8 8");
    row("bracket-last", "x = [1\nfrom a import b", "Expected a ']' 6 6");
    row("names-that-begin-alike", "x = (1,\nclassy, definite,\nimported)", "");
    row("open-at-the-end", "x = (\n\n\n", "");
    row("single-quoted", "x = 'abc\ny = 1", "Unterminated String 4 8");
    row("continued", "x = 'a\\\nb'", "");
    row("escaped-backslash-before-the-line-end", "x = 'a\\\\\nb", "Unterminated String 4 8");
    row("escaped-quote", "x = 'a\\'b'", "");
    row("quotes-at-the-end", "x = \"", "Unterminated String 4 5");
    row("triple-with-an-escaped-end", "'''a\\'''b'''", "");
    // Not found: only the first quote is skipped, and two are an empty string.
    row("open-doc-string", "'''abc\nd'ef\n", "Unterminated String 8 11");
    row("string-hides-the-next-indent", "x = '\n    y = 1", "Unterminated String 4 5");
}

void PythonParserTest::structureIsChecked()
{
    QFETCH(QString, text);
    QFETCH(QString, errors);
    PythonParser parser;
    parser.parse(text, QString());
    QCOMPARE(listing(parser.errors()), errors);
}

void PythonParserTest::indentsAreChecked_data()
{
    columns<QString, QString, QString>("text", "errors", "warnings");
    const auto row = [](const char *tag, const char *text, const char *errors,
                        const char *warnings = "") {
        QTest::newRow(tag) << QString::fromLatin1(text) << QString::fromLatin1(errors)
                           << QString::fromLatin1(warnings);
    };
    row("fine", "if x:\n  y\n  if z: # c\n    a\nb", "");
    row("block-expected", "if x:\ny", "Expected an indented block 6 6");
    row("comment-does-not-count", "if x:\n# c\n\n  y", "");
    row("colon-in-brackets", "x = {a:\nb}\ny", "");
    row("colon-with-code-behind", "if x: y\nz", "");
    row("unexpected", "x\n  y\n  z", "Unexpected indent 2 4");
    row("dedent-to-nothing", "if x:\n    y\n  z\n z",
        "Unindent does not match any outer indentation level 12 14");
    row("same-width-spelled-differently", "if a:\n        if b:\n                c\n\td",
        "Unindent does not match any outer indentation level 38 39");
    row("same-width-in-spaces", "if a:\n        if b:\n                c\n        d", "");
    row("mixed", "if a:\n \tb\n \tc", "", "Indent contains both tabs and spaces 6 8");
    row("unindent-hides-mixed", "if a:\n  b\n c\n \td",
        "Unindent does not match any outer indentation level 10 11");
    row("first-line-starts-at-1", "  x", "Unexpected indent 1 2");
    row("other-white-space-is-not-checked", "x\n\f  y", "");
    row("continuation-is-not-checked", "f(\n      x,\n  y)", "");
}

void PythonParserTest::indentsAreChecked()
{
    QFETCH(QString, text);
    QFETCH(QString, errors);
    QFETCH(QString, warnings);
    PythonParser parser;
    parser.parse(text, QString());
    QCOMPARE(listing(parser.errors()), errors);
    QCOMPARE(listing(parser.warnings()), warnings);
}

void PythonParserTest::commentsAndDocStringsYieldNotes_data()
{
    columns<QString, QString>("text", "todos");
    row("comment", "x # TODO y\nz", "TODO: 2 10");
    row("comment-at-the-end", "# TODO", "TODO: 0 6");
    row("comment-behind-a-colon", "if x: # TODO\n  y", "");
    row("doc-string", "'''\nTODO\n'''", "TODO: 0 9");
    row("open-doc-string", "\"\"\" TODO", "TODO: 0 -1");
    row("string", "'TODO # TODO'", "");
    row("longer-words", "# TODOS TO-DO todo", "");
    row("behind-an-escaped-end", "'''TODO\\''' '''", "");
}

void PythonParserTest::commentsAndDocStringsYieldNotes()
{
    QFETCH(QString, text);
    QFETCH(QString, todos);
    PythonParser parser;
    parser.parse(text, QString());
    QCOMPARE(listing(parser.todos()), todos);
}

void PythonParserTest::preferencesSilenceDiagnostics()
{
    preferences().pythonDisplayErrors = false;
    PythonParser parser;
    parser.parse(QString::fromLatin1(" \tx)\n# TODO\nimport a"), QString());
    preferences().pythonDisplayErrors = true;
    QCOMPARE(parser.errors().count() + parser.warnings().count() + parser.todos().count(), 0);
    QCOMPARE(outlineListing(parser), QString::fromLatin1("4 a 19 0"));
}

void PythonParserTest::eachRunStartsAfresh()
{
    PythonParser parser;
    parser.parse(QString::fromLatin1("if x:\n \ty = ([{\n@staticmethod"), QString());
    parser.parse(QString::fromLatin1("def f(): pass"), QString());
    QCOMPARE(outlineListing(parser), QString::fromLatin1("8 f 4 0"));
    QCOMPARE(listing(parser.errors()) + listing(parser.warnings()), QString());
}

void PythonParserTest::timeIsLinear_data()
{
    QTest::addColumn<QString>("unit");
    for (const char *unit : {"\"",
                             "'",
                             "\\",
                             "'''",
                             "'''\\",
                             "#",
                             ":",
                             "(",
                             "(\n",
                             ")",
                             "@a\n",
                             "def ",
                             "def a\n",
                             "class ",
                             "import a\n",
                             "import a,",
                             "from a import b,",
                             "if __name__ == ",
                             "\n",
                             "\t",
                             " \n",
                             "if x:\n",
                             "x: ",
                             "'\\\n",
                             "def f%1():\n"})
        QTest::newRow(QByteArray(unit).replace('\n', "\\n").constData())
            << QString::fromLatin1(unit);
}

void PythonParserTest::timeIsLinear()
{
    QFETCH(QString, unit);
    QCOMPARE(parserSlowness(longText(unit)), QString());
}

void PythonParserTest::timeIsLinearInDistinctNames()
{
    QString text = QString::fromLatin1("import n");
    for (int i = 0; i < 100000; ++i)
        text += QString::fromLatin1(", name%1").arg(i);
    for (int length = 1; length < 500; ++length)
        text += QLatin1Char(',') + QString(length, QLatin1Char('a'));
    QCOMPARE(parserSlowness(text), QString());
}

CORVANE_TEST_MAIN(PythonParserTest)
#include "tst_pythonparser.moc"
