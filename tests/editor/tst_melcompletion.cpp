// SPDX-License-Identifier: MIT
#include "editor/melcompletion.h"

#include "bridge/commandhelp.h"
#include "bridge/melnametable.h"
#include "editor/melcontext.h"
#include "editor/openscripts.h"
#include "tests/editor/scriptedit.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

namespace {

int asked; // how often help was

CommandHelp helpOn(const QString &name)
{
    ++asked;
    CommandHelp help;
    if (name != "move")
        return help;
    help.kind = CommandKind::Command;
    help.flags << CommandFlag{"r", "relative", QString()} << CommandFlag{"a", "absolute", "on|off"};
    return help;
}

// One script declares all.
class Scripts : public OpenScripts
{
public:
    std::vector<Completion> melNamesFor(const QTextDocument *) const override
    {
        return {{"ownProc", CompletionKind::Procedure},
                {"Mirror", CompletionKind::Procedure},
                {"$gMain", CompletionKind::Variable}};
    }
};

QString texts(const Completions &found)
{
    QStringList all;
    for (const Completion &completion : found.items)
        all << completion.text;
    return all.join(" ");
}

} // namespace

class TestMelCompletion : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void contextIsFound_data();
    void contextIsFound();
    void nodesInPathsAreLeftAlone();
    void variablesInScope_data();
    void variablesInScope();
    void offersWhatFits_data();
    void offersWhatFits();
    void flagsAreAskedForOnce();
};

void TestMelCompletion::initTestCase()
{
    melNames().names = {{"move", CommandKind::Command},
                        {"Move", CommandKind::RuntimeCommand},
                        {"ownProc", CommandKind::Command},
                        {"in", CommandKind::Command}};
    ++melNames().version;
    setCommandHelpSource(helpOn);
}

void TestMelCompletion::cleanupTestCase()
{
    setCommandHelpSource(nullptr);
}

void TestMelCompletion::contextIsFound_data()
{
    columns<QString, int, QString, QString>("text", "kind", "prefix", "command");
    const int nothing = MelContext::Nothing;
    const int name = MelContext::Name;
    const int flag = MelContext::Flag;
    row("empty", "|", name, "", "");
    row("word", "sets -add po|ly", name, "po", "");
    row("variable", "$a = $b|", int(MelContext::Variable), "$b", "");
    row("string", "print \"po|\"", nothing, "", "");
    row("open-string", "print \"po|", nothing, "", "");
    row("behind-string", "print \"a\" + po|", name, "po", "");
    row("right-behind-string", "print\"a\"po|", name, "po", "");
    row("line-comment", "f; // po|", nothing, "", "");
    row("comment-of-lines", "/* a\n po|", nothing, "", "");
    row("behind-comment", "/* a\n */ po|", name, "po", "");
    row("string-of-lines", "print \"a\\\n po|", nothing, "", "");
    row("number", "$a = 1e|", nothing, "", "");
    row("component", "$v.x|", nothing, "", "");
    row("declared", "global proc string  po|", nothing, "", "");
    row("declared-in-loop", "for (string po|", nothing, "", "");
    row("type-of-flag", "addAttr -dt string -|", flag, "-", "addAttr");
    row("type", "global proc str|", name, "str", "");
    row("cast", "(string)po|", name, "po", "");

    row("flag", "move -|", flag, "-", "move");
    row("flag-typed", "move -r 1 -ab|", flag, "-ab", "move");
    row("flag-in-later-line", "move // -a\n \"; x\"\n  -|", flag, "-", "move");
    row("second-statement", "ls; move -|", flag, "-", "move");
    row("in-block", "if ($a) { move -|", flag, "-", "move");
    row("behind-condition", "if (size($a) > 1) move -|", flag, "-", "move");
    row("behind-loop", "for ($i = 0; $i < 3; $i++)\n    move -|", flag, "-", "move");
    row("behind-else", "else if (f(1)) move -|", flag, "-", "move");
    row("behind-case", "case \"a;b\": move -|", flag, "-", "move");
    row("backquotes", "$a = `move -|", flag, "-", "move");
    row("behind-backquotes", "ls -a `move -r` -|", flag, "-", "ls");
    row("backquotes-in-parentheses", "for ($a in `move -|", flag, "-", "move");
    row("parentheses", "print (1 + size(move(-|", flag, "-", "move");
    row("behind-parentheses", "move (ls(\"a\")) -|", flag, "-", "move");
    row("behind-array", "ls({\"a\"}, -|", flag, "-", "ls");
    row("minus", "$a = $b -|", name, "", "");
    row("minus-without-blank", "move $b-c|", name, "c", "");
}

void TestMelCompletion::contextIsFound()
{
    QFETCH(QString, text);
    QFETCH(int, kind);
    QFETCH(QString, prefix);
    QFETCH(QString, command);
    const ScriptEdit script(MelLanguage, text);
    const MelContext context = melContextAt(script.cursor);
    QCOMPARE(int(context.kind), kind);
    QCOMPARE(context.prefix, prefix);
    QCOMPARE(context.command, command);
}

void TestMelCompletion::nodesInPathsAreLeftAlone()
{
    ScriptEdit script(MelLanguage, "$a |");
    script.cursor.insertText("|po");
    QCOMPARE(int(melContextAt(script.cursor).kind), int(MelContext::Nothing));
    script.cursor.insertText("||po");
    QCOMPARE(int(melContextAt(script.cursor).kind), int(MelContext::Name));
}

void TestMelCompletion::variablesInScope_data()
{
    columns<QString, QString>("text", "variables");
    row("top-level", "int $a; $b = $a; |$c", "$a $b");
    row("not-the-typed", "$a = $b|", "$a");
    row("not-of-procedures", "$a;\nproc f(int $b) {\n $c;\n}\nproc g(int $d) { $e; }\n|", "$a");
    row("arguments", "$a;\nproc f(int $b,\n int $c)\n{\n $d;\n|", "$b $c $d");
    row("one-line", "$a; \nproc f(int $b) { $c|", "$b");
    row("blocks-around", "proc f() {\n $a;\n if ($b) {\n  $c;\n  |", "$a $b $c");
    row("not-of-closed-blocks", "proc f() {\n $a;\n while (1) {\n  if (1) {\n $x; }\n |", "$a");
    row("not-of-closed-branches", "if ($a) {\n $x;\n} else if ($b) {\n|", "$a $b");
    row("not-of-a-block-in-a-line", "$a; while ($b) { $x; } |", "$a $b");
    row("loop-below-procedure", "proc f(int $a) {\n $b;\n}\n$c;\nfor ($d in $c) {\n|", "$c $d");
    row("not-in-strings", "print \"$a\"; // $b\n/* $c */ $d;\n|", "$d");
}

void TestMelCompletion::variablesInScope()
{
    QFETCH(QString, text);
    QFETCH(QString, variables);
    const ScriptEdit script(MelLanguage, text);
    QStringList found = melVariablesBefore(script.cursor);
    found.sort();
    QCOMPARE(found.join(" "), variables);
}

void TestMelCompletion::offersWhatFits_data()
{
    columns<QString, int, QString>("text", "prefixLength", "offered"); // without keywords
    row("names", "$v; ow|", 2, "$gMain $v Mirror Move move ownProc");
    row("variables", "$v; $|", 1, "$gMain $v");
    row("flags", "move -re|", 3, "-a -absolute -r -relative");
    row("unknown-command", "shift -re|", 2, "$gMain Mirror Move move ownProc");
    row("comment", "// move -|", 0, "");
}

void TestMelCompletion::offersWhatFits()
{
    QFETCH(QString, text);
    QFETCH(int, prefixLength);
    QFETCH(QString, offered);
    const Scripts scripts;
    setOpenScripts(&scripts);
    const ScriptEdit script(MelLanguage, text);
    Completions found = MelCompletion().completionsAt(script.cursor);
    setOpenScripts(nullptr);
    const auto isKeyword = [](const Completion &completion) {
        return completion.kind == CompletionKind::Keyword;
    };
    const auto keywords = std::remove_if(found.items.begin(), found.items.end(), isKeyword);
    const bool hasNames = offered.contains("move");
    QCOMPARE(int(found.items.end() - keywords), hasNames ? 25 : 0);
    found.items.erase(keywords, found.items.end());
    QCOMPARE(texts(found), offered);
    QCOMPARE(found.prefixLength, prefixLength);
    for (const Completion &completion : found.items) {
        if (completion.text == "ownProc") // of the script, though the host knows it as well
            QVERIFY(completion.kind == CompletionKind::Procedure);
    }
}

void TestMelCompletion::flagsAreAskedForOnce()
{
    asked = 0;
    MelCompletion source;
    const ScriptEdit known(MelLanguage, "move -|");
    const ScriptEdit unknown(MelLanguage, "shift -|"); // which a plug-in may still bring
    for (int i = 0; i < 3; ++i)
        source.completionsAt(known.cursor);
    QCOMPARE(asked, 1);
    for (int i = 0; i < 3; ++i)
        source.completionsAt(unknown.cursor);
    QCOMPARE(asked, 4);
}

CORVANE_TEST_MAIN(TestMelCompletion)

#include "tst_melcompletion.moc"
