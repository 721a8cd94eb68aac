// SPDX-License-Identifier: MIT
#include "bridge/commandhelp.h"
#include "bridge/melnametable.h"
#include "bridge/pythonnamesource.h"
#include "editor/openscripts.h"
#include "editor/pythoncompletion.h"
#include "editor/pythonexcerpt.h"
#include "tests/support/caretnotation.h"
#include "tests/support/datatable.h"
#include "tests/support/lineartime.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"

#include <QDir>
#include <QTextDocument>

class PythonCompletionTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void whatStandsAtTheCaret_data();
    void whatStandsAtTheCaret();
    void excerptsParse_data();
    void excerptsParse();
    void longTextsAreReducedToWhatMatters();
    void anyTextIsReadInTime();
    void flagsComeFirst_data();
    void flagsComeFirst();
    void flagsOfALaterPlugInAreFound();
    void kindsTellWhatNamesAre();
    void relativeImportsBeginInTheFolderOfTheScript();
};

namespace {

PythonContext contextOf(const QString &drawing)
{
    QTextDocument document;
    const QTextCursor caret = setDrawing(&document, drawing);
    return PythonContext(document.toPlainText(), caret.position(), "q.p");
}

QString described(const PythonCaret &caret)
{
    const char *places[] = {"nothing", "name", "member", "module", "imported"};
    QStringList words = QStringList() << QString::fromLatin1(places[caret.place]);
    words << QString::number(caret.prefixLength) << caret.object;
    words << caret.call.function + caret.call.keywords.join(",");
    return words.join(" ").trimmed();
}

QStringList answers;

QStringList answer(PythonQuestion question, const QString &source, const QString &object)
{
    Q_UNUSED(source)
    if (question == PythonQuestion::ExportedNames)
        return QStringList() << "function len"
                             << "name sphere";
    if (question == PythonQuestion::Modules)
        return QStringList() << object;
    if (question == PythonQuestion::NamesInModule)
        return QStringList() << "name " + object;
    if (question == PythonQuestion::OtherBuiltIns)
        return QStringList();
    if (question == PythonQuestion::Keywords)
        return QStringList() << "while";
    if (question == PythonQuestion::BuiltIns)
        return QStringList() << "len";
    return answers;
}

CommandHelp help(const QString &name)
{
    CommandHelp result;
    CommandFlag flag;
    for (const char *names : {"r radius", "n name", "q import"}) {
        flag.shortName = QString::fromLatin1(names).section(' ', 0, 0);
        flag.longName = QString::fromLatin1(names).section(' ', 1);
        if (name == "sphere")
            result.flags << flag;
    }
    result.kind = name == "cone" ? CommandKind::Unknown : CommandKind::Command;
    flag.shortName = "len";
    flag.longName.clear();
    if (name == "box")
        result.flags << flag;
    return result;
}

class Scripts : public OpenScripts
{
public:
    std::vector<Completion> melNamesFor(const QTextDocument *) const override { return {}; }
    QString folderOf(const QTextDocument *) const override { return ++asked, folder; }

    QString folder;
    mutable int asked = 0;
};

// The texts of the items.
QStringList completed(const QString &drawing, std::vector<Completion> *items = nullptr)
{
    setPythonNameSource(answer);
    setCommandHelpSource(help);
    QTextDocument document;
    const Completions found = PythonCompletion().completionsAt(setDrawing(&document, drawing));
    QStringList texts;
    for (const Completion &item : found.items)
        texts << item.text;
    if (items)
        *items = found.items;
    return texts;
}

} // namespace

void PythonCompletionTest::cleanup()
{
    setPythonNameSource(nullptr);
    setCommandHelpSource(nullptr);
    melNameTable().clear();
    answers.clear();
}

void PythonCompletionTest::whatStandsAtTheCaret_data()
{
    QTest::addColumn<QString>("drawing");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *tag, const char *drawing, const char *expected) {
        QTest::newRow(tag) << QString::fromUtf8(drawing) << QString::fromLatin1(expected);
    };
    row("empty", "|", "name 0");
    row("in-a-name", "x = po|ly", "name 2");
    row("member", "cmds.po|", "member 2 cmds");
    row("beyond-ascii",
        "gr\xc3\xb6\xc3\x9f"
        "e|",
        "name 5");
    row("blanks-around-the-dot", "a . b . |", "member 0 a.b");
    row("over-lines", "f(a.\n  b.c|", "member 1 a.b");
    row("behind-a-backslash", "a\\\n.b|", "member 1 a");
    row("of-a-call", "A(1, ')').b.|", "member 0 A.b");
    row("of-a-string", "','.join|", "member 4 str");
    row("of-bytes", "x = Rb'''a'''.de|", "member 2 bytes");
    row("of-an-item", "a.b[c[0]](d)[1].e|", "member 1 a.b.[].[]");
    row("of-a-part-of-a-list", "a[1:f(2)].|", "member 0 a");
    row("of-a-list", "return [a].|", "member 0 list");
    row("of-a-dictionary", "x = {a: {b}}.|", "member 0 dict");
    row("of-a-set", "{a, b[c:d]}.|", "member 0 set");
    row("of-brackets", "(a + b).|", "nothing 0");
    row("of-text-in-brackets", "('%s' % (a, b)).|", "member 0 str");
    row("number", "12|", "nothing 0");
    row("fraction", "1.|", "nothing 0");
    row("in-a-string", "f('a.|", "nothing 0");
    row("escaped-quote", "r'\\'a|'", "nothing 0");
    row("in-a-long-string", "'''\na.|\n'''", "nothing 0");
    row("behind-a-string", "'#' + a|", "name 1");
    row("in-a-formatted-string", "f'''a {{b}} {c!r:{d}} {e['f']} {g.h|}'''", "member 1 g");
    row("in-a-formatted-string-begun", "x = rF\"a {b == c != d|", "name 1");
    row("in-its-format", "f'{a:b|}'", "nothing 0");
    row("in-its-text", "f'{{a|}} {b}'", "nothing 0");
    row("in-a-string-in-it", "f'{a[\"b|\"]}'", "nothing 0");
    row("call-in-a-formatted-string", "f(f'{a.sphere(r=1, |)}')", "name 0  a.spherer");
    row("in-a-comment", "a # b.|", "nothing 0");
    row("in-a-line-of-comment", "  # b.|", "nothing 0");
    row("behind-an-open-string", "a = 'b\nc.|", "member 0 c");
    row("behind-an-open-bracket", "f(a,\nc.|", "member 0 c");
    row("import", "import |", "module 0");
    row("import-more", "import a, b.c.d|", "module 1 b.c");
    row("import-alias", "import a as b|", "nothing 1");
    row("import-behind-a-semicolon", "x; import a|", "module 1");
    row("from", "from importlib.|", "module 0 importlib");
    row("from-relative", "from .|", "module 0 .");
    row("from-relative-below", "from ..a.b|", "module 1 ..a");
    row("from-relative-import", "from . import a, |", "imported 0 .");
    row("from-import", "from importlib import a, b|", "imported 1 importlib");
    row("from-import-lines", "from a import (b,\n  c, # |\n  d)", "nothing 0");
    row("from-import-brackets", "from a.b import (c,\n  |\n  d)", "imported 0 a.b");
    row("new-function", "def f|", "nothing 1");
    row("new-method", "class A(B):\n    def __in|", "member 4 self");
    row("argument", "a.sphere(|", "name 0  a.sphere");
    row("argument-given", "a.sphere(r=1, x == 2, |, n='='); b(c=1)", "name 0  a.spherer,n");
    row("argument-lines", "a.sphere(\n    r=f(1,\n    k=2),\n    |\n)", "name 0  a.spherer");
    row("value-of-an-argument", "sphere(r=|)", "name 0");
    row("item-of-an-argument", "sphere([|", "name 0");
}

void PythonCompletionTest::whatStandsAtTheCaret()
{
    QFETCH(QString, drawing);
    QFETCH(QString, expected);
    QCOMPARE(described(pythonCaret(contextOf(drawing))), expected);
}

void PythonCompletionTest::excerptsParse_data()
{
    QTest::addColumn<QString>("drawing");
    QTest::addColumn<QString>("expected"); // ^ for the locator, / for line ends

    const auto row = [](const char *tag, const char *drawing, const char *expected) {
        QTest::newRow(tag) << QString::fromLatin1(drawing) << QString::fromLatin1(expected);
    };
    row("alone", "cmds.po|", "^");
    row("open-call", "a = 1\nf(b,\n  c.|\nd = 2", "a = 1/^/d = 2");
    row("header", "if a.|:\n    b = 1", "^/b = 1");
    row("arguments", "class A:\n  def f(self, |", "class A:/ def f(^): pass");
    row("behind-the-colon", "def f(a): return a.|", "def f(a):/ ^");
    row("inside-behind-the-colon", "def f():\n def g(a): a.|", "def f():/ for a, g in ():/  ^");
    row("same-line", "import a.b as c; d = 'x;'; print 1; c.|; e", "import a.b as c/d = \"\"/^");
    row("blank-behind-the-code", "a = 1; b |\nfor x in y: pass", "a = 1/^/for x in y: pass");
    row("inside-class-on-a-line", "def f():\n class A: b = c|", "def f():/ ^");
    row("same-line-of-a-block", "try: import a; a.|", "import a/^");
    row("same-line-of-a-function", "def f(): import a; a.|", "def f():/ import a/ ^/import a");
    row("loop-in-brackets", "[f(b|) for a, (b, c) in d]", "for a, b, c in (): pass/^");
    row("loop-on-the-line", "for a in b: c|", "for a in (): pass/^");
    row("loop-begun", "[a for b|", "^");
    row("lambda", "f(lambda a, b={c: d}, *e: a.|", "for a, b, e in (): pass/^");
    row("lambda-begun", "f(lambda a, b|", "^");
    row("named-values", "if (a := 1) and b: c|; d", "for a in (): pass/^");
    row("context", "with open(a[b:c]) as d, e() as f: d|", "for d, f in (): pass/^");
    row("attribute-as-target", "[0 for a.b in c|]", "^");
    row("import-in-the-function",
        "class A:\n def f(self):\n  if a:\n   from b import (c,\n    d)\n  def g(): import h\n  |",
        "class A:/ def f(self):/  if a:/   from b import (c,/    d)/  for g in (): pass/  ^"
        "/from b import (c,/    d)");
    row("import-in-another", "def f():\n import a\ndef g():\n |", "def f():/ import a/def g():/ ^");
    row("bases", "class A(|", "class A(^): pass");
    row("new-method", "class A(B):\n  def |\n  x = 1",
        "class A(B):/ def __kedefloc__(self): ^/ x = 1");
    row("empty-block", "def f():\n    |\ny = 1", "def f():/ ^/y = 1");
    row("block-without-a-body", "def f():\n|", "def f(): pass/^");
    row("no-colon", "def f(a)\n    b = 1\n    |", "def f(a):/ b = 1/ ^");
    row("nested-class",
        "class A:\n class B(C):\n  def f(self):\n   self.|\n  x = 1\n def g(self): pass\nh = 1",
        "class A:/ class B: pass/ def g(self): pass/h = 1/class B(C):/ def f(self):/  ^/ x = 1");
    row("class-in-a-function", "def f(a):\n b = 1\n class C:\n  def g(self): |",
        "for a, f in ():/ b = 1/ class C: pass/class C:/ def g(self):/  ^");
    row("comprehension-around-a-string", "[f'{a|} {b}' for c in d]", "for c in (): pass/^");
    row("comprehension-in-a-string", "f'{(a|, [b for b in c])} {d}'", "for b in (): pass/^");
    row("relative-import", "from .a import b\ndef f():\n try: from .. import c\n |",
        "from q.p.a import b/def f():/ if 1: from .. import c/ ^/from q import c");
    row("lone-clauses", "try:\n  a = 1\n|\nelse: b = 1", "if 1:/ a = 1/^/if 1: b = 1");
    row("exception", "try: pass\nexcept (A, B) as e:\n  |", "if 1: pass/with (A, B) as e:/ ^");
    row("exception-of-a-class", "try: pass\nexcept A.B as e: e.|",
        "if 1: pass/for e in (): pass/^");
    row("broken-ones", "x = (1\ndef f(a,\n  y = 1\nz.\n|", "def f(a, y): pass/^");
    row("uneven-blocks", "if a:\n    b = 1\n  c = 2\n|", "if a:/ b = 1/ c = 2/^");
    row("python-2", "print 'x'\nprint ('x')\n|", "print ('x')/^");
    row("functions-inside", "def f():\n def g(a): pass\n @h\n def i(b, *c):\n  |",
        "def f():/ for g in (): pass/ for b, c, i in ():/  ^");
}

void PythonCompletionTest::excerptsParse()
{
    QFETCH(QString, drawing);
    QFETCH(QString, expected);
    QString excerpt = pythonExcerpt(contextOf(drawing), 10000).mid(1);
    QVERIFY(excerpt.endsWith("\npass"));
    excerpt.chop(5);
    excerpt.replace("__corvane_lctr_kvrt__", "^").replace('\n', '/');
    QCOMPARE(excerpt, expected);
}

void PythonCompletionTest::longTextsAreReducedToWhatMatters()
{
    QString text = "import a.b\n";
    for (int i = 0; i < 1000; ++i)
        text += QString("class C%1(Base):\n    def m(self):\n        f(1)\n        self.x = 1\n"
                        "    def n(self): pass\n")
                    .arg(i);
    const QString near = "def here(p):\n    q = 1\n    |\n";
    const QString excerpt = pythonExcerpt(contextOf(text + near + text), 20000);
    QVERIFY(excerpt.size() < 40000);
    for (const char *kept :
         {"import a.b\n", "def here(p):\n q = 1\n __corvane", "\nclass C999(Base)"})
        QVERIFY2(excerpt.contains(kept), kept);
    QVERIFY(!excerpt.contains("f(1)"));
}

void PythonCompletionTest::anyTextIsReadInTime()
{
    const auto read = [](const QString &text) {
        const PythonContext context(text, int(text.size()));
        pythonCaret(context);
        pythonExcerpt(context, 20000);
    };
    for (const char *pattern : {"a.", "(", "()", "f(\n", "f(a,\n", "if a:\n", "'''\"", "\\\n",
                                "def f(\n ", "lambda a;"}) {
        const QString complaint = slowness(longText(pattern), read);
        QVERIFY2(complaint.isEmpty(), qPrintable(pattern + complaint));
    }
}

void PythonCompletionTest::flagsComeFirst_data()
{
    columns<QString, QString>("drawing", "expected");
    const char all[] = "n= name name= q= r= radius= a len z"; // the variable before its flag
    row("alias", "import maya.cmds as mc\nmc.sphere(|", all);
    row("without-an-import", "cmds.sphere(|", all);
    row("imported-command", "from maya.cmds import sphere as ball\nball(|)", all);
    row("import-nearby", "def f():\n    from maya import cmds as c\n    c.sphere(\n        |", all);
    row("all-commands", "from maya.cmds import *\nsphere(|",
        "n= name name= q= r= radius= a len sphere z");
    row("given", "cmds.sphere(q=1, |, radius=2)", "n= name name= a len z");
    row("with-its-value", "cmds.sphere(r=2, |=3)", "n name q a len z");
    row("no-flags", "cmds.cone(|", "a len name z");
    row("own-function", "def f(a, b, *c, d=(1, 2), len=3): pass\nf(1, len=2, |)",
        "b= d= a len name z");
    row("own-class", "class A:\n def f(self, a): pass\n def __init__(self, z):\n  A(|",
        "z z= a len name");
    row("own-method", "class A:\n def f(self, b,\n   c): pass\n def g(self):\n  self.f(|=1",
        "b c a len name z");
    row("inherited", "class A:\n def f(self, b): pass\nclass B(A):\n def g(self):\n  self.f(|",
        "b= a len name z");
    row("of-super", "class A:\n def f(self, b): pass\nclass B(A):\n def f(self):\n  super().f(|",
        "b= a len name z");
    row("own-inner-function", "def f():\n def g(b): pass\n if 1:\n  g(|", "b= a len name z");
    row("base-of-itself", "class A(A):\n def f(self):\n  self.g(|", "a len name z");
    row("in-a-comment", "# cmds.sphere(|", "");
    row("called-as-a-built-in", "cmds.box(|", "len= a len name z");
}

void PythonCompletionTest::flagsComeFirst()
{
    QFETCH(QString, drawing);
    QFETCH(QString, expected);
    answers = words("a len name z");
    QCOMPARE(completed(drawing).join(" "), expected);
}

void PythonCompletionTest::flagsOfALaterPlugInAreFound()
{
    QTextDocument document;
    const QTextCursor caret = setDrawing(&document, "cmds.sphere(|");
    PythonCompletion completion;
    QCOMPARE(int(completion.completionsAt(caret).items.size()), 0);
    setCommandHelpSource(help);
    QCOMPARE(int(completion.completionsAt(caret).items.size()), 5);
    setCommandHelpSource(nullptr);
    QCOMPARE(int(completion.completionsAt(caret).items.size()), 5); // not asked for again
}

void PythonCompletionTest::kindsTellWhatNamesAre()
{
    melNameTable().insert("ls", "ls");
    melNameTable().insert("", ""); // as the host's has it
    answers << "A"
            << "arg"
            << "f"
            << "len"
            << "ls"
            << "os"
            << "other"
            << "var"
            << "while";
    std::vector<Completion> items;
    const QString text = "import os\nfrom maya.cmds import ls\nclass A: pass\nvar = 1\n";
    completed(text + "def f(arg):\n    |", &items);
    const CompletionKind expected[] = {
        CompletionKind::Class,   CompletionKind::Argument, CompletionKind::Function,
        CompletionKind::BuiltIn, CompletionKind::Command,  CompletionKind::Module,
        CompletionKind::Name,    CompletionKind::Variable, CompletionKind::Keyword};
    QCOMPARE(int(items.size()), int(answers.size()));
    for (int i = 0; i < int(items.size()); ++i)
        QVERIFY2(items[i].kind == expected[i], qPrintable(items[i].text));
    melNameTable().insert("sphere", "sphere");
    completed("from maya.cmds import *\n|", &items);
    QVERIFY(items[7].text == "sphere" && items[7].kind == CompletionKind::Command);
    answers = QStringList() << "class ls"
                            << "module os"
                            << "name other";
    completed("import maya.cmds as mc\nmc.|", &items);
    QVERIFY(items[0].kind == CompletionKind::Command && items[1].kind == CompletionKind::Module);
    QVERIFY(items[2].kind == CompletionKind::Name && items[2].text == "other");
}

void PythonCompletionTest::relativeImportsBeginInTheFolderOfTheScript()
{
    const ScratchDir folder;
    QVERIFY(QDir(folder.path()).mkpath("a/b/c"));
    folder.write("a/b/__init__.py", "");
    folder.write("a/b/c/__init__.py", "");
    Scripts scripts;
    setOpenScripts(&scripts);
    completed("from a import b\nb.c.|");
    QCOMPARE(scripts.asked, 0);
    QCOMPARE(completed("from . import |").join(" "), QString());
    scripts.folder = folder.path() + "/a/b/c";
    QCOMPARE(completed("from .|").join(" "), QString("b.c"));
    QCOMPARE(completed("from ..d import |").join(" "), QString("b.d"));
    QCOMPARE(completed("from ... import |").join(" "), QString());
    setOpenScripts(nullptr);
}

CORVANE_TEST_MAIN(PythonCompletionTest)
#include "tst_pythoncompletion.moc"
