// SPDX-License-Identifier: MIT
#include "tests/standin/mel/recordinghost.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QDir>
#include <QFile>
#include <QObject>

#include <algorithm>
#include <new>
#include <stdexcept>

class TestMelInterpreter : public QObject
{
    Q_OBJECT

private slots:
    void wordsBecomeFlagsAndObjects_data();
    void wordsBecomeFlagsAndObjects();
    void rawCommandsGetTheirWordsUntouched();
    void arraysAreSpreadIntoWords();
    void commandsMayComeAndGoWhileTheyRun();
    void procedureHidesTheCommandOfItsName();
    void outcomeCarriesValueOrReportedError();
    void textIsEchoedOnlyWithDisplay();
    void callTakesReadyWords();
    void nestedTextReportsItsErrorOnce();
    void evaluateHandsTheErrorToTheCommand();
    void whateverACommandThrowsCanBeCaught();
    void globalVariablesCrossTheBorder();
    void sourcedFilesNameThemselvesInErrors();
    void scriptsOnThePathAreSourcedOnDemand();
    void sourceReadsTheFileAnewEachTime();
    void byteOrderMarkIsNoPartOfAScript();
    void fileThatSourcesItselfEnds();
    void redefinedProcedureRunsToItsEnd();
    void everyLibraryProcedureCompiles();
    void helpTextsListFlags();
    void deferredTextsReachTheHost();
    void namesAreListedSorted();
};

namespace {

std::string listed(const std::vector<mel::Value> &values)
{
    std::string text;
    for (const mel::Value &value : values)
        text += std::string(text.empty() ? "" : ",") + mel::typeName(value) + ":" +
                mel::printText(value);
    return text;
}

// A command that answers how it was called.
mel::Command probe()
{
    mel::Command command;
    command.name = "probe";
    command.queryable = true;
    command.editable = true;
    command.flags = {{"n", "name", {mel::ArgumentKind::String}},
                     {"on", "enabled", {mel::ArgumentKind::Boolean}},
                     {"p", "position", {mel::ArgumentKind::Float, mel::ArgumentKind::Int}, true},
                     {"i", "item", {mel::ArgumentKind::Name}, false, mel::QueryArgument::Mandatory},
                     {"s", "switch"}};
    command.run = [](mel::Call &call) {
        std::string text = call.query ? "query " : call.edit ? "edit " : "";
        for (const mel::Call::FlagUse &use : call.flags)
            text += use.flag->longName + "(" + listed(use.arguments) + ") ";
        return mel::Value(text + "[" + listed(call.objects) + "]");
    };
    return command;
}

// A command whose body is given.
mel::Command plain(const char *name, std::function<mel::Value(mel::Call &)> run)
{
    mel::Command command;
    command.name = name;
    command.run = std::move(run);
    return command;
}

// The path of a script in the temporary folder.
QString writeScript(const QString &name, const char *text)
{
    const QString path = QDir::tempPath() + "/" + name;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
    return path;
}

} // namespace

void TestMelInterpreter::wordsBecomeFlagsAndObjects_data()
{
    columns<QString, QString>("text", "message");
    row("objects", "probe a 1 \"b c\"", "R [string:a,int:1,string:b c]");
    row("short-and-long", "probe -n x -switch", "R name(string:x) switch() []");
    row("after-objects", "probe a -name x b", "R name(string:x) [string:a,string:b]");
    row("boolean-words", "probe -on true; probe -on off", "R enabled(int:0) []");
    row("number-as-text", "probe -n 1.5", "R name(string:1.5) []");
    row("text-as-number", "probe -p \"2.5\" \"3\"", "R position(float:2.5,int:3) []");
    row("repeated", "probe -p 1 2 -p 3 4", "R position(float:1,int:2) position(float:3,int:4) []");
    row("negative-arguments", "probe -p -1 -2 -3", "R position(float:-1,int:-2) [int:-3]");
    row("dashed-text-argument", "probe -n \"-s\" \"-1\"", "R name(string:-s) [string:-1]");
    row("function-form", "probe(\"-name\", \"x\", \"-s\", 5)", "R name(string:x) switch() [int:5]");
    row("query-takes-none", "probe -q -n a", "R query name() [string:a]");
    row("query-mode-anywhere", "probe -n -query a", "R query name() [string:a]");
    row("query-with-argument", "probe -q -i x a", "R query item(string:x) [string:a]");
    row("edit", "probe -e -on 1 a", "R edit enabled(int:1) [string:a]");
    row("unknown", "probe -foo 1", "E line 1: Invalid flag '-foo'");
    row("argument-missing", "probe -n", "E line 1: Flag '-n' must be passed an argument.");
    row("dash-word-is-no-flag", "probe \"---\"", "R [string:---]");
}

void TestMelInterpreter::wordsBecomeFlagsAndObjects()
{
    QFETCH(QString, text);
    QFETCH(QString, message);
    TestInterpreter interpreter;
    interpreter.mel.addCommand(probe());
    const std::string seen = interpreter.runJoined(text.toUtf8().constData());
    QCOMPARE(QString::fromUtf8(seen.c_str()), message);
}

void TestMelInterpreter::rawCommandsGetTheirWordsUntouched()
{
    TestInterpreter interpreter;
    mel::Command raw =
        plain("raw", [](mel::Call &call) { return mel::Value(listed(call.objects)); });
    raw.rawWords = true;
    interpreter.mel.addCommand(raw);
    QCOMPARE(interpreter.runJoined("raw -ws on 2 -q \"a b\""),
             std::string("R string:-ws,string:on,int:2,string:-q,string:a b"));
}

void TestMelInterpreter::arraysAreSpreadIntoWords()
{
    TestInterpreter interpreter;
    interpreter.mel.addCommand(probe());
    QCOMPARE(interpreter.runJoined("string $l[] = {\"-s\", \"a\"}; int $e[]; probe $l $e {1, 2}"),
             std::string("R switch() [string:a,int:1,int:2]"));
}

void TestMelInterpreter::commandsMayComeAndGoWhileTheyRun()
{
    TestInterpreter interpreter;
    mel::Interpreter &mel = interpreter.mel;
    const unsigned before = mel.commandGeneration();
    const std::string captured(100, 'x');
    QVERIFY(mel.addCommand(plain("gone", [&mel, captured](mel::Call &) {
        mel.removeCommand("gone");
        return mel::Value(captured);
    })));
    QVERIFY(!mel.addCommand(plain("gone", nullptr)));
    QVERIFY(!mel.addCommand(plain("size", nullptr)));
    QCOMPARE(interpreter.runJoined("print (gone() + \"\\n\"); gone;"),
             "> " + captured + "\\n | E line 1: Cannot find procedure \"gone\".");
    QCOMPARE(mel.commandGeneration(), before + 2);
    QVERIFY(!mel.command("gone"));
    QVERIFY(!mel.removeCommand("gone"));
}

void TestMelInterpreter::procedureHidesTheCommandOfItsName()
{
    TestInterpreter interpreter;
    interpreter.mel.addCommand(probe());
    QCOMPARE(interpreter.runJoined("global proc int probe() { return 7; } probe"),
             std::string("R 7"));
    QCOMPARE(interpreter.runJoined("probe -s"),
             std::string("E probe -s | E Line 1.8: Wrong number of arguments on call to probe."));
}

void TestMelInterpreter::outcomeCarriesValueOrReportedError()
{
    TestInterpreter interpreter;
    mel::Outcome outcome = interpreter.mel.execute("{\"a\", \"b\"}[0]; ");
    QVERIFY(!outcome.ok);
    outcome = interpreter.mel.execute("$words = {\"a\", \"b\"}; $words");
    QVERIFY(outcome.ok);
    QVERIFY(outcome.value == mel::Value(mel::StringArray{"a", "b"}));
    outcome = interpreter.mel.execute("print \"\";");
    QVERIFY(outcome.ok && mel::isVoid(outcome.value));
    interpreter.host.takeMessages();
    outcome = interpreter.mel.execute("error \"no\";");
    QVERIFY(!outcome.ok);
    QCOMPARE("E " + outcome.error, interpreter.host.takeMessages().front());
}

void TestMelInterpreter::textIsEchoedOnlyWithDisplay()
{
    TestInterpreter interpreter;
    interpreter.mel.execute("1 + 1", false);
    QVERIFY(interpreter.host.takeMessages().empty());
    interpreter.mel.execute("1 + 1;\n", true);
    const std::vector<std::string> seen = interpreter.host.takeMessages();
    QCOMPARE(seen.size(), size_t(2));
    QCOMPARE(seen[0], std::string("H 1 + 1;\\n"));
    QCOMPARE(seen[1], std::string("R 2"));
}

void TestMelInterpreter::callTakesReadyWords()
{
    TestInterpreter interpreter;
    interpreter.mel.addCommand(probe());
    const std::vector<mel::Value> words = {std::string("-n"), std::string("a\"b"), 3};
    QVERIFY(interpreter.mel.call("probe", words).value ==
            mel::Value(std::string("name(string:a\"b) [int:3]")));
    QVERIFY(interpreter.mel.call("size", {mel::StringArray{"a", "b"}}).value == mel::Value(2));
    QVERIFY(interpreter.mel.call("startsWith", {std::string("maya"), std::string("ma")}).value ==
            mel::Value(1));
    QVERIFY(!interpreter.mel.call("nothingOfThatName", {}).ok);
}

void TestMelInterpreter::nestedTextReportsItsErrorOnce()
{
    TestInterpreter interpreter;
    mel::Interpreter &mel = interpreter.mel;
    mel.addCommand(plain("inner", [&mel](mel::Call &call) {
        return mel::Value(mel.execute(call.objectText(0)).ok);
    }));
    QCOMPARE(interpreter.runJoined("print (inner(\"noSuch;\") + \"|\");"),
             std::string("E line 1: Cannot find procedure \"noSuch\". | > 0|"));
}

void TestMelInterpreter::evaluateHandsTheErrorToTheCommand()
{
    TestInterpreter interpreter;
    mel::Interpreter &mel = interpreter.mel;
    mel.addCommand(plain("inner", [&mel](mel::Call &call) {
        try {
            return mel.evaluate(call.objectText(0));
        } catch (const mel::RuntimeError &error) {
            return mel::Value(std::string("caught ") + error.what());
        }
    }));
    QCOMPARE(interpreter.runJoined("inner \"1 + 2\";"), std::string("R 3"));
    QCOMPARE(interpreter.runJoined("\ninner \"noSuch\";"),
             std::string("R caught line 1: Cannot find procedure \"noSuch\"."));
    QCOMPARE(interpreter.runJoined("inner \"1 +\";"),
             std::string("R caught Line 1.3: Syntax error"));
    // Without a script around them messages have no line to name.
    mel.runCommand("warning", {std::string("w")});
    QCOMPARE(interpreter.host.takeMessages().back(), std::string("W w"));
    try {
        mel.runCommand("error", {std::string("e")});
        QFAIL("no error");
    } catch (const mel::RuntimeError &error) {
        QCOMPARE(error.what(), "e");
    }
}

void TestMelInterpreter::whateverACommandThrowsCanBeCaught()
{
    TestInterpreter interpreter;
    interpreter.mel.addCommand(
        plain("hungry", [](mel::Call &) -> mel::Value { throw std::bad_alloc(); }));
    interpreter.mel.addCommand(
        plain("careless", [](mel::Call &) -> mel::Value { throw std::logic_error("oops"); }));
    QCOMPARE(interpreter.runJoined("proc f() { hungry; }\nprint (catch(f()) + catch(`hungry`) + "
                                   "catch(`careless`));"),
             std::string("E line 1: Out of memory. | E line 2: Out of memory. | E line 2: oops | "
                         "> 3"));
    QCOMPARE(interpreter.runJoined("\nhungry;"), std::string("E line 2: Out of memory."));
}

void TestMelInterpreter::globalVariablesCrossTheBorder()
{
    TestInterpreter interpreter;
    QVERIFY(!interpreter.mel.globalVariable("$gName"));
    QVERIFY(interpreter.mel.setGlobalVariable("$gName", std::string("host")));
    QCOMPARE(interpreter.runJoined("proc f() { global string $gName; $gName += \"!\"; } f;"),
             std::string());
    QVERIFY(interpreter.mel.globalVariable("$gName") == mel::Value(std::string("host!")));
    QVERIFY(!interpreter.mel.setGlobalVariable("$gName", 1));
}

void TestMelInterpreter::sourcedFilesNameThemselvesInErrors()
{
    TestInterpreter interpreter;
    const QString path = writeScript("melTestFailing.mel",
                                     "print 1;\nglobal proc melTestFail() {\n  error \"no\";\n}");
    const std::string quoted = path.toUtf8().constData();
    QVERIFY(interpreter.mel.sourceFile(quoted).ok);
    interpreter.host.takeMessages();
    interpreter.mel.settings().stackTrace = true;
    QCOMPARE(interpreter.runJoined("\nmelTestFail;"),
             "E file: " + quoted + " line 3: no | S Start of trace: (file: " + quoted +
                 " line 3).\\nmelTestFail (command window: line 2).");
    interpreter.mel.settings().lineNumbers = false;
    interpreter.mel.settings().stackTrace = false;
    QCOMPARE(interpreter.runJoined("melTestFail;"), std::string("E no"));
    interpreter.mel.settings().lineNumbers = true;
    writeScript("melTestFailing.mel", "error \"at once\";");
    interpreter.mel.settings().stackTrace = true;
    QCOMPARE(interpreter.runJoined("source \"" + quoted + "\";"),
             "E file: " + quoted + " line 1: at once | S Start of trace: (file: " + quoted +
                 " line 1).");
    interpreter.mel.settings().stackTrace = false;
    writeScript("melTestFailing.mel", "int $a;\nprint (;\n");
    QCOMPARE(interpreter.runJoined("source \"" + quoted + "\"; print 2;"),
             "E print (;\\n | E \"" + quoted + "\" line 2.8: Syntax error");
    writeScript("melTestFailing.mel", "print (1\n");
    QCOMPARE(interpreter.runJoined("source \"" + quoted + "\"; print 2;"),
             "E print (1\\n | E \"" + quoted + "\" line 1.9: Syntax error");
    QFile::remove(path);
    QCOMPARE(interpreter.runJoined("source \"" + quoted + "\"; print 2;").substr(0, 10),
             std::string("E source \""));
    QVERIFY(!interpreter.mel.sourceFile(quoted).ok);
}

void TestMelInterpreter::scriptsOnThePathAreSourcedOnDemand()
{
    TestInterpreter interpreter;
    interpreter.host.scripts = {"/nonexistent", QDir::tempPath().toUtf8().constData()};
    const QString path = writeScript("melTestOnDemand.mel",
                                     "global proc int melTestOnDemand(int $n) { return $n + 1; }\n"
                                     "proc melTestHidden() {}\nprint \"read \";");
    const std::string text = path.toUtf8().constData();
    QCOMPARE(interpreter.runJoined("whatIs melTestOnDemand"), "R Script found in: " + text);
    QCOMPARE(interpreter.runJoined("print (melTestOnDemand(1) + \" \" + melTestOnDemand(2));"),
             std::string("> read 2 3"));
    QCOMPARE(interpreter.runJoined("whatIs melTestOnDemand"), "R Mel procedure found in: " + text);
    QCOMPARE(interpreter.runJoined("melTestHidden"),
             std::string("E line 1: Cannot find procedure \"melTestHidden\"."));
    QFile::remove(path);
}

void TestMelInterpreter::sourceReadsTheFileAnewEachTime()
{
    TestInterpreter interpreter;
    interpreter.host.scripts = {QDir::tempPath().toUtf8().constData()};
    writeScript("melTestChanging.mel", "print 1;");
    interpreter.run("global proc again() { source \"melTestChanging\"; }");
    QCOMPARE(interpreter.runJoined("again;"), std::string("> 1"));
    const QString path = writeScript("melTestChanging.mel", "print 2;");
    QCOMPARE(interpreter.runJoined("again;"), std::string("> 2"));
    QFile::remove(path);
}

void TestMelInterpreter::byteOrderMarkIsNoPartOfAScript()
{
    TestInterpreter interpreter;
    const QString path = writeScript("melTestMarked.mel", "\xEF\xBB\xBFprint 1; noSuch \"\n");
    interpreter.mel.sourceFile(path.toUtf8().constData());
    const std::vector<std::string> seen = interpreter.host.takeMessages();
    QCOMPARE(seen.front(), std::string("E print 1; noSuch \"\\n"));
    writeScript("melTestMarked.mel", "\xEF\xBB\xBFprint 1;");
    QVERIFY(interpreter.mel.sourceFile(path.toUtf8().constData()).ok);
    QFile::remove(path);
}

void TestMelInterpreter::fileThatSourcesItselfEnds()
{
    TestInterpreter interpreter;
    interpreter.host.scripts = {QDir::tempPath().toUtf8().constData()};
    const QString path = writeScript("melTestSelf.mel", "source melTestSelf;");
    QVERIFY(!interpreter.mel.execute("source melTestSelf;").ok);
    interpreter.host.takeMessages();
    writeScript("melTestSelf.mel", "global proc reload() { source melTestSelf; } print \"in \";");
    QCOMPARE(interpreter.runJoined("source melTestSelf; reload; reload;"),
             std::string("> in in in "));
    QFile::remove(path);
}

void TestMelInterpreter::redefinedProcedureRunsToItsEnd()
{
    TestInterpreter interpreter;
    interpreter.run(
        "global proc int f() { eval(\"global proc int f() { return 2; }\"); string $s = \"still\"; "
        "print ($s + \" here \"); return 1; }");
    QCOMPARE(interpreter.runJoined("print (f() + \" \" + f());"), std::string("> still here 1 2"));
}

void TestMelInterpreter::everyLibraryProcedureCompiles()
{
    TestInterpreter interpreter;
    const std::vector<std::string> messages =
        interpreter.run("string $names[] = melInfo(); int $count;"
                        "for ($n in $names) {"
                        "  if (startsWith(whatIs($n), \"Mel procedure\")) {"
                        "    getProcArguments($n); $count++;"
                        "  }"
                        "} $count");
    QCOMPARE(messages.size(), size_t(1));
    QVERIFY2(std::stoi(messages[0].substr(2)) > 35, messages[0].c_str());
}

void TestMelInterpreter::helpTextsListFlags()
{
    TestInterpreter interpreter;
    mel::Command command = probe();
    command.objectSynopsis = "[String...]";
    command.flags.push_back({"off", "", {}, true});
    interpreter.mel.addCommand(command);
    const mel::Value text = interpreter.mel.execute("help -so probe").value;
    QCOMPARE(QString::fromUtf8(std::get<std::string>(text).c_str()),
             QString("Synopsis: probe [flags] [String...]\n"
                     "Flags:\n"
                     "   -e -edit\n"
                     "   -q -query\n"
                     "   -i -item      Name (Query Arg Mandatory)\n"
                     "   -n -name      String\n"
                     " -off -          (multi-use)\n"
                     "  -on -enabled   on|off\n"
                     "   -p -position  Float Int (multi-use)\n"
                     "   -s -switch\n"));
    const QString ending = "\nCommand Type: Command\n";
    const auto ends = [&](const char *question) {
        const mel::Value answer = interpreter.mel.execute(question).value;
        return QString::fromUtf8(std::get<std::string>(answer).c_str()).endsWith(ending);
    };
    QVERIFY(!ends("help -so probe"));
    QVERIFY(ends("help probe"));
    interpreter.mel.settings().helpNamesCommandType = true;
    QVERIFY(ends("help -so probe"));
    QCOMPARE(interpreter.runJoined("help -so size").find("Flags:"), std::string::npos);
}

void TestMelInterpreter::deferredTextsReachTheHost()
{
    TestInterpreter interpreter;
    QCOMPARE(interpreter.runJoined("evalDeferred \"a\"; evalDeferred -lp \"b\"; evalDeferred -low "
                                   "c d; evalDeferred -en \"e\"; "
                                   "evalDeferred -ls"),
             std::string("R a @1 b @3 c d @2 e @0"));
}

void TestMelInterpreter::namesAreListedSorted()
{
    TestInterpreter interpreter;
    QVERIFY(interpreter.mel.hasProcedure("startsWith")); // before anything has run
    interpreter.run("global proc aaa() {} proc hidden() {} runTimeCommand -c \"print 1\" zzz;");
    const mel::Value listing = interpreter.mel.execute("melInfo").value;
    const mel::StringArray &names = std::get<mel::StringArray>(listing);
    QVERIFY(std::is_sorted(names.begin(), names.end()));
    for (const char *wanted : {"aaa", "zzz", "size", "startsWith", "commandEcho", "eval"})
        QVERIFY2(std::count(names.begin(), names.end(), wanted) == 1, wanted);
    QVERIFY(std::count(names.begin(), names.end(), "hidden") == 0);
    QVERIFY(!interpreter.mel.hasProcedure("hidden"));
}

CORVANE_TEST_MAIN(TestMelInterpreter)
#include "tst_melinterpreter.moc"
