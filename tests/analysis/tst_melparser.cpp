// SPDX-License-Identifier: MIT
#include "analysis/melparser.h"
#include "preferences/preferences.h"
#include "tests/analysis/parserlisting.h"
#include "tests/support/datatable.h"
#include "tests/support/lineartime.h"
#include "tests/support/testmain.h"

class MelParserTest : public QObject
{
    Q_OBJECT

private slots:
    void declarationsAreListed_data();
    void declarationsAreListed();
    void structureIsChecked_data();
    void structureIsChecked();
    void commentsYieldNotes_data();
    void commentsYieldNotes();
    void emptyFirstLinesAreWarnedOf();
    void errorsAreNotKept();
    void preferencesSilenceWarningsAndNotes();
    void eachRunStartsAfresh();
    void timeIsLinear_data();
    void timeIsLinear();
};

void MelParserTest::declarationsAreListed_data()
{
    columns<QString, QString>("text", "items");
    row("global-proc", "global proc foo() {}", "1 foo 12 0");
    row("return-type", "global proc string[] foo() {}", "1 foo 21 0");
    row("types-run-together", "proc stringint[]vector foo() {}", "2 foo 23 0");
    row("local-proc-in-braces-has-depth-0", "{\nproc f(){}}", "2 f 7 0");
    row("global-proc-in-braces", "{\nglobal proc f(){}}", "1 f 14 1");
    row("global-variable", "global string $gX = \"a\", $gY;", "3 $gX 14 0");
    row("global-array", "{ global int[] $a; }", "3 $a 15 1");
    row("two-blanks-before-a-variable", "global int  $a;", "");
    row("variable-without-a-name", "global int $;", "");
    row("type-run-into-the-name", "proc string intfoo() {}", "2 intfoo 12 0");
    row("no-blank-behind-the-type", "global string[]$a; proc string(){}", "2 string 24 0");
    row("dots-inside-a-name", "proc a.b() {}", "2 a.b 5 0");
    row("two-dots-in-a-name", "proc a..b() {} proc c.() {}", "");
    row("not-behind-other-text", "xproc f() {} (proc g() {} )", "");
    row("not-over-a-line-end", "global\nproc f() {}\nproc\ng() {}", "2 f 12 0");
    row("not-in-a-string", "\" proc f() {} \"", "");
    row("not-in-comments", "// proc f() {}\n/* proc g() {} */", "");
    row("behind-a-tab", "\tproc f() {}", "2 f 6 0");
    row("nested-global-proc", "global proc f() { global proc g() {} }", "1 f 12 0");
    row("nested-local-proc", "proc f() { proc g() {} }", "2 f 5 0");
    row("behind-a-nested-one", "global proc f() { { global proc g() {} } }\nproc h() {}",
        "1 f 12 0; 2 h 48 0");
    row("body-on-the-next-line", "proc f()\n{\n}\nproc g()\n{ }", "2 f 5 0; 2 g 18 0");
    // The brace is skipped with the name, so the closing one is a stray one.
    row("array-parameter", "proc f(string $a[]) {\n}\nproc g() {}", "2 f 5 0; 2 g 29 0");
}

void MelParserTest::declarationsAreListed()
{
    QFETCH(QString, text);
    QFETCH(QString, items);
    MelParser parser;
    parser.parse(text, QString());
    QCOMPARE(outlineListing(parser), items);
}

void MelParserTest::structureIsChecked_data()
{
    columns<QString, QString>("text", "errors");
    row("fine", "proc f() { if (1) { $a[0] = 1; } }", "");
    row("two-stray-braces", "}\n}", "Unexpected '}' 0 1");
    row("stray-bracket", "a ]", "Unexpected ']' 2 3");
    row("stray-paren", ")", "Unexpected ')' 0 1");
    row("paren-open-at-the-semicolon", "f(1;", "Expected a ')' 3 4");
    row("bracket-open-at-the-semicolon", "$a[1;", "Expected a ']' 4 5");
    row("brace-open-at-the-end", "{\n", "Expected a '}' 2 2");
    row("one-bracket-error-but-every-string", "f(1;\n\"abc\n",
        "Expected a ')' 3 4; Unterminated String 5 9");
    row("escaped-quote", "\"a\\\"b\";", "");
    row("escaped-backslash", "\"a\\\\\" b\"", "Unterminated String 7 8");
    row("continued-string", "\"a\\\nb\"", "");
    row("string-open-at-the-end", "\"a\\", "Unterminated String 0 3");
    row("braces-in-strings-and-comments", "\"}\" // }\n/* } */", "");
    // Deliberate: the scan goes on behind the "g" and meets the "proc" on its own.
    row("nested-global", "global proc f() {\nglobal proc g() {}}",
        "Procedures cannot be nested within each other. Expected a '}'. 18 30; "
        "Procedures cannot be nested within each other. Expected a '}'. 25 30");
    row("nested-local", "proc f() {\nproc g() {}}",
        "Procedures cannot be nested within each other. Expected a '}'. 11 16");
    row("bad-global-name", "global proc a..b() {}",
        "Invalid procedure name 0 16; Invalid procedure name 7 11");
    // Deliberate: counted from the declaration on.
    row("bad-local-name", "proc a..b() {}", "Invalid procedure name 0 4");
    row("no-argument-list", "proc f {", "Expected a '(' 5 6");
    row("text-ends-behind-the-name", "proc f", "Expected a '(' 5 6");
    row("array-parameter", "proc f(int $a[]) {", "Expected a ')' 5 6");
    row("comment-in-the-arguments", "proc f(int $a /* b */) {}", "");
    row("argument-list-left-open", "proc f(int $a", "Expected a ')' 5 6");
    row("no-body", "proc f() print 1;", "Expected a '{' 5 8");
    row("text-ends-behind-the-arguments", "proc f()", "Expected a '{' 5 8");
    // The semicolon leaves the mark of the first slash.
    row("slash-semicolon-slash", "/;/ }", "");
}

void MelParserTest::structureIsChecked()
{
    QFETCH(QString, text);
    QFETCH(QString, errors);
    Recording<MelParser> parser;
    parser.parse(text, QString());
    QCOMPARE(listing(parser.errors()), errors);
}

void MelParserTest::commentsYieldNotes_data()
{
    columns<QString, QString>("text", "todos");
    row("line", "x; // TODO this\ny;", "TODO: 4 15");
    row("line-at-the-end", "//TODO", "TODO: 1 6");
    row("longer-word", "// TODOS _TODO TODO1", "");
    row("letters-beside-it", QString::fromUtf8("// \xc3\xa4TODO"), "");
    row("lower-case", "// todo", "");
    row("block", "/* TODO */ // TODO", "TODO: 1 8; TODO: 12 18");
    row("open-block", "/* TODO\nproc f() {}", "TODO: 1 -1");
    row("no-end-within-the-start", "/*/ TODO */", "TODO: 1 9");
    row("string", "\"// TODO\"", "");
    row("other-separators", QString::fromLatin1("// TODO") + QChar(QChar::ParagraphSeparator),
        "TODO: 1 7");
}

void MelParserTest::commentsYieldNotes()
{
    QFETCH(QString, text);
    QFETCH(QString, todos);
    MelParser parser;
    parser.parse(text, QString());
    QCOMPARE(listing(parser.todos()), todos);
}

void MelParserTest::emptyFirstLinesAreWarnedOf()
{
    MelParser parser;
    const QString warning = QString::fromLatin1(
        "Empty line(s) at start of file. Line numbers in trace may be incorrect. 0 0");
    parser.parse(QString::fromLatin1(" \nprint 1;"), QString());
    QCOMPARE(listing(parser.warnings()), warning);
    for (const char *text : {"\n \n", "print 1;\n\n", "print 1;", ""}) {
        parser.parse(QString::fromLatin1(text), QString());
        QCOMPARE(listing(parser.warnings()), QString());
    }
}

void MelParserTest::errorsAreNotKept()
{
    MelParser parser;
    parser.parse(QString::fromLatin1("}"), QString());
    QCOMPARE(parser.errors().count(), 0);
}

void MelParserTest::preferencesSilenceWarningsAndNotes()
{
    preferences().melDisplayErrors = false;
    MelParser parser;
    parser.parse(QString::fromLatin1("\n// TODO\nproc f() {}"), QString());
    preferences().melDisplayErrors = true;
    QCOMPARE(parser.warnings().count() + parser.todos().count(), 0);
    QCOMPARE(outlineListing(parser), QString::fromLatin1("2 f 14 0"));
}

void MelParserTest::eachRunStartsAfresh()
{
    Recording<MelParser> parser;
    parser.parse(QString::fromLatin1("\n{ // TODO\nglobal proc f() { ("),
                 QString::fromLatin1("/a.mel"));
    QCOMPARE(parser.file().fileName(), QString::fromLatin1("a.mel"));
    parser.parse(QString::fromLatin1("proc g() { } }"), QString());
    QCOMPARE(outlineListing(parser), QString::fromLatin1("2 g 5 0"));
    QCOMPARE(listing(parser.errors()), QString::fromLatin1("Unexpected '}' 13 14"));
    QCOMPARE(parser.warnings().count() + parser.todos().count(), 0);
    QVERIFY(parser.file().fileName().isEmpty());
}

void MelParserTest::timeIsLinear_data()
{
    QTest::addColumn<QString>("unit");
    for (const char *unit : {"\"",
                             "\\",
                             "/*",
                             "//",
                             "/",
                             "{",
                             "}",
                             "(",
                             "proc ",
                             "proc a(",
                             "proc a\n",
                             "global ",
                             "global proc ",
                             "global proc a() {",
                             "global int $a",
                             "\n",
                             "p ",
                             "\"\\\n",
                             "\" \\\"",
                             "global proc f%1() {}\n"})
        QTest::newRow(QByteArray(unit).replace('\n', "\\n").constData())
            << QString::fromLatin1(unit);
}

void MelParserTest::timeIsLinear()
{
    QFETCH(QString, unit);
    Recording<MelParser> parser;
    const auto parse = [&parser](const QString &text) { parser.parse(text, QString()); };
    QCOMPARE(slowness(longText(unit), parse), QString());
}

CORVANE_TEST_MAIN(MelParserTest)
#include "tst_melparser.moc"
