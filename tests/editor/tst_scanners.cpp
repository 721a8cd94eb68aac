// SPDX-License-Identifier: MIT
#include "editor/melscanner.h"
#include "editor/pythonscanner.h"
#include "tests/support/datatable.h"
#include "tests/support/lineartime.h"
#include "tests/support/testmain.h"

#include <QStringList>

#include <memory>

class ScannersTest : public QObject
{
    Q_OBJECT

private slots:
    void codeIsSeparated_data();
    void codeIsSeparated();
    void wordsAreColoured_data();
    void wordsAreColoured();
    void linesAreScannedByThemselves();
    void timeIsLinear_data();
    void timeIsLinear();
};

namespace {

QHash<QString, QString> someNames()
{
    QHash<QString, QString> names;
    for (const char *name : {"sphere", "ls", "polyCube", "in", "2d"})
        names.insert(QString::fromLatin1(name), QString::fromLatin1(name));
    return names;
}

std::unique_ptr<LineScanner> scannerFor(const QString &language)
{
    static const QHash<QString, QString> names = someNames();
    if (language == QLatin1String("mel"))
        return std::make_unique<MelScanner>(names);
    return std::make_unique<PythonScanner>(names);
}

// The line with each unit as its category's sign: k keyword, c command, n number, s string,
// d doc string, * comment, @ decorator, ' ' nothing.
QString drawn(const LineScan &scan, int length)
{
    static const QHash<int, QChar> signs = [] {
        QHash<int, QChar> map;
        const auto add = [&map](EditorText category, char sign) {
            map.insert(int(category), QLatin1Char(sign));
        };
        add(EditorText::MelKeywords, 'k');
        add(EditorText::PythonKeywords, 'k');
        add(EditorText::MelCommands, 'c');
        add(EditorText::PythonMelCommands, 'c');
        add(EditorText::MelNumbers, 'n');
        add(EditorText::PythonNumbers, 'n');
        add(EditorText::MelStrings, 's');
        add(EditorText::PythonStrings, 's');
        add(EditorText::PythonDocStrings, 'd');
        add(EditorText::MelComments, '*');
        add(EditorText::PythonComments, '*');
        add(EditorText::PythonDecorators, '@');
        return map;
    }();
    QString drawing(length, QLatin1Char(' '));
    for (const FormatSpan &span : scan.spans)
        drawing.replace(span.start, span.length,
                        QString(span.length, signs.value(int(span.category), QLatin1Char('?'))));
    return drawing;
}

QString listed(const std::vector<Bracket> &brackets)
{
    QString text;
    for (const Bracket &bracket : brackets)
        text += bracket.character + QString::number(bracket.column);
    return text;
}

} // namespace

void ScannersTest::codeIsSeparated_data()
{
    columns<QString, int, QString, int, QString, QString>("language", "before", "line", "after",
                                                          "code", "brackets");
    QString language;
    const auto row = [&language](const char *tag, int before, const char *line, int after,
                                 const char *code, const char *brackets = "") {
        QTest::newRow((language + QLatin1Char('-') + QLatin1String(tag)).toLatin1().constData())
            << language << before << QString::fromLatin1(line) << after << QString::fromLatin1(code)
            << QString::fromLatin1(brackets);
    };
    language = QLatin1String("mel");
    row("brackets-by-kind", -1, "f(a[{)](", 0, "f(a[{)](", "(1(7)5{4[3]6");
    row("brackets-by-segment", 0, ") \"(\" (]/*[*/[", 0, ")  (][", ")0(6]7[13");
    row("brace-in-a-string", 0, "if ($a == \"}\") {", 0, "if ($a == ) {", "(3)13{15");
    row("escaped-quote", 0, "print \"a\\\"b\" + c", 0, "print  + c");
    row("escaped-backslash", 0, "\"a\\\\\" b \"c", 0, " b ");
    row("continued-string", 0, "a \"b\\", 1, "a ");
    row("backslash-in-front-of-the-last", 0, "\"b\\\\", 1, "");
    row("open-string", 0, "a \"b", 0, "a ");
    row("carried-string", 1, "b\" c", 0, " c");
    row("carried-string-ends-at-once", 1, "\"c", 0, "c");
    row("carried-string-goes-on", 1, "b\\", 1, "");
    row("carried-string-without-an-end", 1, "", 0, "");
    row("open-comment", 0, "a /* \" // b", 2, "a ");
    row("carried-comment", 2, "a // */ b", 0, " b");
    row("carried-comment-goes-on", 2, "", 2, "");
    row("carried-comment-ends-at-once", 2, "*/ b", 0, " b");
    row("no-end-within-the-start", 0, "/*/ a */ b", 0, " b");
    row("line-comment-first", 0, "a // /* \"", 0, "a ");
    row("comment-sign-in-a-string", 0, "\"/* //\" b", 0, " b");
    row("single-quotes-are-code", 0, "' # b", 0, "' # b");
    language = QLatin1String("python");
    row("both-quotes", 0, "a 'b\"' \"c'\" d", 0, "a   d");
    row("doc-string-on-one-line", 0, "'''a''' b", 0, " b");
    row("doc-string-of-double-quotes", 0, "\"\"\"a ''' ", 4, "");
    row("doc-string-of-single-quotes", 0, "a '''b \"\"\" # ", 3, "a ");
    row("carried-doc-string", 3, "a \"\"\" ''' b", 0, " b");
    row("carried-doc-string-goes-on", 4, "", 4, "");
    row("two-quotes-are-a-string", 0, "'' a \"\" b", 0, " a  b");
    row("escaped-end-of-a-doc-string", 0, "'''a\\'''' b", 0, " b");
    row("continued-single", 0, "'a\\", 1, "");
    row("continued-double", 0, "\"a\\", 2, "");
    row("carried-single", 1, "a\" ' b", 0, " b");
    row("carried-double-without-an-end", 2, "a", 0, "");
    row("doc-string-behind-a-carried-one", 1, "a' '''b", 3, " ");
    row("comment", 0, "a # 'b' (", 0, "a ");
    row("sign-in-a-string", 0, "'#' (", 0, " (", "(4");
    row("slashes-are-code", 0, "a // /* b", 0, "a // /* b");
}

void ScannersTest::codeIsSeparated()
{
    QFETCH(QString, language);
    QFETCH(int, before);
    QFETCH(QString, line);
    LineScan scan;
    scannerFor(language)->scan(line, before, scan);
    QTEST(scan.state, "after");
    QTEST(scan.code(line), "code");
    QTEST(listed(scan.brackets), "brackets");
    QCOMPARE(scan.inComment, language == QLatin1String("mel") && before == 2);
}

void ScannersTest::wordsAreColoured_data()
{
    columns<QString, QString, QString>("language", "line", "drawing");
    QString language;
    const auto row = [&language](const char *tag, const QString &line, const char *drawing) {
        QTest::newRow((language + QLatin1Char('-') + QLatin1String(tag)).toLatin1().constData())
            << language << line << QString::fromLatin1(drawing);
    };
    const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
    language = QLatin1String("mel");
    row("keyword-and-command", text("if sphere ifs"), "kk cccccc    ");
    row("keyword-wins-over-command", text("in"), "kk");
    row("flag-and-variable", text("ls -ls $ls -in"), "cc            ");
    row("word-before-a-minus", text("ls-1"), "   n");
    row("word-before-a-minus-and-alone", text("ls-1 + ls"), "cc n   cc");
    row("word-before-a-dollar-and-alone", text("ls$a;ls"), "cc   cc");
    row("alone-only-as-a-variable", text("ls-1 $ls"), "   n    ");
    row("letters-of-any-script-are-words", text("ls\xc3\xa4 \xc3\xa4ls ls"), "        cc");
    row("letters-beyond-the-first-plane", text("ls\xf0\x9d\x94\xb8 ls"), "     cc");
    row("signs-beyond-the-first-plane", text("ls\xf0\x9f\x98\x80 ls"), "cc   cc");
    row("numbers", text("1 2.5.6. x3 4y .5 1e3"), "n nnnnnn    n   n n  ");
    row("number-wins-over-command", text("2d"), "nc");
    row("strings-and-comments-win", text("\"if 1\" /* if */ // 1"), "ssssss ******** ****");
    language = QLatin1String("python");
    row("keywords", text("if True: yield None"), "kk kkkk  kkkkk kkkk");
    row("behind-a-dot", text("a.print.if x.1"), "             n");
    row("behind-signs", text("-if $if"), "       ");
    row("commands-need-cmds", text("sphere cmds.sphere xcmds.ls a.cmds.ls"),
        "            cccccc                 cc");
    row("cmds-of-other-names", text("cmds.other cmds .ls"), "                   ");
    row("imported-commands", text("from maya.cmds import ls, x, sphere as s"),
        "kkkk           kkkkkk cc     cccccc kk  ");
    row("imported-from-elsewhere", text("from xcmds import ls"), "kkkk       kkkkkk   ");
    row("decorator", text("  @a.if_b(1) @c"), "  @@@@@@@ n    ");
    row("at-sign-elsewhere", text("a @ b"), "     ");
    row("decorator-in-a-comment", text("# @a"), "****");
    row("doc-string", text("'''if 1''' 'if' # 1"), "dddddddddd ssss ***");
}

void ScannersTest::wordsAreColoured()
{
    QFETCH(QString, language);
    QFETCH(QString, line);
    QFETCH(QString, drawing);
    LineScan scan;
    scannerFor(language)->scan(line, 0, scan);
    QCOMPARE(drawn(scan, int(line.size())), drawing);
}

// What a scanner keeps is room, nothing of the line before.
void ScannersTest::linesAreScannedByThemselves()
{
    const auto scanner = scannerFor("mel");
    LineScan scan;
    for (const char *line : {"1.2 ls-1 ls (", "for-1", "\"a", "ls-1", ""}) {
        LineScan fresh;
        scanner->scan(line, 0, scan);
        scannerFor("mel")->scan(line, 0, fresh);
        QVERIFY2(scan.spans == fresh.spans && scan.brackets == fresh.brackets, line);
        QCOMPARE(scan.code(line), fresh.code(line));
        QCOMPARE(scan.state, fresh.state);
    }
}

void ScannersTest::timeIsLinear_data()
{
    QTest::addColumn<QString>("unit");
    for (const char *unit : {"ls-1 ", "1.", "\"", "\\\"", "'''", "/*/", "(", "a", "$a-", "''\\",
                             "w%1-1 ", "([{)]}", "'a%1' "})
        QTest::newRow(unit) << QString::fromLatin1(unit);
}

void ScannersTest::timeIsLinear()
{
    QFETCH(QString, unit);
    const QString line = longText(unit);
    for (const char *language : {"mel", "python"}) {
        const std::unique_ptr<LineScanner> scanner = scannerFor(QString::fromLatin1(language));
        LineScan scan;
        const auto scanLine = [&](const QString &text) { scanner->scan(text, 0, scan); };
        QCOMPARE(slowness(line, scanLine), QString());
    }
}

CORVANE_TEST_MAIN(ScannersTest)
#include "tst_scanners.moc"
