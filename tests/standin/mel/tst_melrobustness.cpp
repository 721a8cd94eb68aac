// SPDX-License-Identifier: MIT
#include "standin/mel/lexer.h"
#include "tests/standin/mel/programs.h"
#include "tests/standin/mel/recordinghost.h"
#include "tests/support/testmain.h"

#include <QObject>

#include <chrono>
#include <random>
#include <thread>

class TestMelRobustness : public QObject
{
    Q_OBJECT

private slots:
    void noPrefixOfAProgramCrashes();
    void noMutatedProgramCrashes();
    void hostileTextsEndInAnError_data();
    void hostileTextsEndInAnError();
    void oddBytesAreHarmless_data();
    void oddBytesAreHarmless();
    void endlessScriptStopsWhenTheHostAsks();
    void endlessScriptStopsFromAnotherThread();
    void catchCannotKeepAnInterruptedScriptAlive();
    void interpreterWorksOnAfterEveryFailure();
    void growingArraysAndTextsTakesLinearTime();
    void replacingTextTakesLinearTime();
    void patternsTakeLinearTime();
};

namespace {

// An interpreter whose scripts can neither reach outside nor run for long.
class Caged : public TestInterpreter
{
public:
    explicit Caged(std::int64_t steps)
    {
        for (const char *name :
             {"system", "exec", "popen", "fopen", "sysFile", "chdir", "putenv", "pause", "trace"})
            mel.removeCommand(name);
        mel.limits().steps = steps;
        mel.limits().textLength = 100 * 1000;
        mel.limits().elements = 100 * 1000;
        mel.limits().callDepth = 30;
    }
};

std::string repeated(const std::string &text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

double secondsFor(TestInterpreter &interpreter, const std::string &text)
{
    const auto start = std::chrono::steady_clock::now();
    interpreter.run(text);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::vector<std::string> tokenTexts(const std::string &text)
{
    std::vector<std::string> texts;
    for (const mel::Token &token : mel::Lexer(text).tokens())
        texts.push_back(text.substr(token.begin, token.end - token.begin));
    return texts;
}

std::string mutated(std::vector<std::string> tokens, const std::vector<std::string> &pool,
                    std::mt19937 &random)
{
    for (unsigned change = 0; change < 1 + random() % 3; ++change) {
        const size_t at = random() % tokens.size();
        switch (random() % 4) {
        case 0:
            tokens[at] = pool[random() % pool.size()];
            break;
        case 1:
            tokens[at].clear();
            break;
        case 2:
            tokens.insert(tokens.begin() + std::ptrdiff_t(at), pool[random() % pool.size()]);
            break;
        default:
            std::swap(tokens[at], tokens[random() % tokens.size()]);
        }
    }
    std::string text;
    for (const std::string &token : tokens)
        text += token + (random() % 8 == 0 ? "" : " ");
    return text;
}

} // namespace

void TestMelRobustness::noPrefixOfAProgramCrashes()
{
    for (const MelProgram &program : melPrograms()) {
        for (const MelStep &step : program.steps) {
            Caged interpreter(300);
            for (size_t length = 0; length < step.text.size(); ++length)
                interpreter.run(step.text.substr(0, length));
        }
    }
}

void TestMelRobustness::noMutatedProgramCrashes()
{
    std::mt19937 random(20140);
    std::vector<std::string> pool;
    const std::vector<MelProgram> programs = melPrograms();
    for (const MelProgram &program : programs) {
        for (const std::string &token : tokenTexts(program.steps.front().text))
            pool.push_back(token);
    }
    int accepted = 0;
    for (const MelProgram &program : programs) {
        Caged interpreter(300);
        const std::vector<std::string> tokens = tokenTexts(program.steps.front().text);
        for (int i = 0; i < 60; ++i)
            accepted += interpreter.mel.execute(mutated(tokens, pool, random)).ok ? 1 : 0;
    }
    // Were nearly all refused, running code would not have been tested.
    QVERIFY(accepted > int(programs.size()));
}

void TestMelRobustness::hostileTextsEndInAnError_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *tag, const std::string &text, const char *error) {
        QTest::newRow(tag) << QString::fromUtf8(text.c_str()) << error;
    };
    const char *const nesting = "Too many nested expressions or blocks.";
    const char *const stack = "line 1: Stack overflow: too many nested calls.";
    row("endless-recursion", "proc f() { f(); } f();", stack);
    row("recursion-in-arguments", "proc int f(int $n) { return 1 + (2 * (3 + f(f($n)))); } f(1);",
        stack);
    row("recursion-through-eval", "global proc g() { eval \"g\"; } g;", stack);
    row("recursion-through-catch-and-eval", "proc h() { eval(\"h()\"); } h();", stack);
    row("parentheses", "int $x = " + repeated("(", 5000) + "1" + repeated(")", 5000), nesting);
    row("open-parentheses", "int $x = " + repeated("(", 100000), nesting);
    row("blocks", repeated("{", 5000) + repeated("}", 5000), nesting);
    row("arrays", "$x = " + repeated("{", 5000), nesting);
    row("vectors", "$x = " + repeated("<<", 5000), nesting);
    row("backticks", repeated("f (`", 5000), nesting);
    row("minus-signs", "int $x = " + repeated("- ", 5000) + "1;", nesting);
    row("conditionals", "int $x = " + repeated("1 ? 2 : ", 5000) + "3;", nesting);
    row("casts", "int $x = " + repeated("(int)", 5000) + "1;", nesting);
    row("ifs", repeated("if (1) ", 5000) + ";", nesting);
    row("sums", "int $x = 1" + repeated(" + 1", 5000) + ";", "Expression is too long.");
    row("bare-word-indices", "f a" + repeated("[1+1]", 5000) + ";", "Expression is too long.");
    row("doubled-text", "string $s = \"x\"; while (1) $s += $s;", "line 1: String is too long.");
    row("joined-text", "string $s = \"x\"; while (1) $s = $s + $s;", "line 1: String is too long.");
    row("huge-index", "int $a[]; $a[2147483647] = 1;", "line 1: Array is too large.");
    row("huge-dynamic-index", "$a = eval(\"$h = {1}\"); $a[2147483647] = 1;",
        "line 1: Array is too large.");
    row("huge-declaration", "int $a[2000000000];", "Array is too large.");
    row("huge-matrix", "matrix $m[60000][60000];", "Matrix is too large.");
    row("pattern-nesting", "string $s = match(\"" + repeated("(", 5000) + "\", \"\");",
        "line 1: Invalid regular");
    row("unknown-file-id", "fgetline 99;", "line 1: Invalid file id: 99.");
    row("closed-file-id", "feof(0);", "line 1: Invalid file id: 0.");
}

void TestMelRobustness::hostileTextsEndInAnError()
{
    QFETCH(QString, text);
    QFETCH(QString, error);
    TestInterpreter interpreter;
    interpreter.mel.limits().elements = 1000 * 1000;
    interpreter.mel.limits().textLength = 1000 * 1000;
    interpreter.mel.settings().lineNumbers = text.contains("proc ") || error.startsWith("line");
    const mel::Outcome outcome = interpreter.mel.execute(text.toUtf8().constData());
    QVERIFY(!outcome.ok);
    QVERIFY2(QString::fromUtf8(outcome.error.c_str()).startsWith(error), outcome.error.c_str());
}

void TestMelRobustness::oddBytesAreHarmless_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("messages");
    QTest::newRow("nul-between") << QByteArray("print 1;\0print 2;", 17)
                                 << "E print 1;%print 2; | E Line 1.9: Syntax error";
    QTest::newRow("stray-utf-8") << QByteArray("print (size(\"a\xff\xfe\"));") << "> 3";
    QTest::newRow("cut-utf-8") << QByteArray("print (size(\"\xe2\x82\"));") << "> 2";
    QTest::newRow("characters")
        << QByteArray("print (size(\"\xe2\x82\xac\xc3\xa4\") + substring(\"a\xc3\xa4o\", 2, 2));")
        << QString::fromUtf8("> 2\xc3\xa4");
    QTest::newRow("open-string") << QByteArray("print \"abc")
                                 << "E print \"abc | E Line 1.10: Unterminated string.";
    QTest::newRow("open-comment") << QByteArray("print 1; /* never closed") << "> 1";
    QTest::newRow("lone-backslash") << QByteArray("\\") << "E \\\\ | E Line 1.1: Syntax error";
    QTest::newRow("lone-dollar") << QByteArray("$ = 1;") << "E $ = 1; | E Line 1.1: Syntax error";
}

void TestMelRobustness::oddBytesAreHarmless()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, messages);
    TestInterpreter interpreter;
    std::string seen = interpreter.runJoined(std::string(text.constData(), size_t(text.size())));
    for (char &c : seen)
        c = c == '\0' ? '%' : c;
    QCOMPARE(QString::fromUtf8(seen.c_str()), messages);
}

void TestMelRobustness::endlessScriptStopsWhenTheHostAsks()
{
    TestInterpreter interpreter;
    interpreter.host.interruptAfter = 3;
    QCOMPARE(interpreter.runJoined("while (1) {}"), std::string("E line 1: Interrupted."));
    QCOMPARE(interpreter.runJoined("1 + 1"), std::string("R 2"));
}

void TestMelRobustness::endlessScriptStopsFromAnotherThread()
{
    TestInterpreter interpreter;
    std::thread stopper([&] {
        while (!interpreter.mel.isRunning())
            std::this_thread::yield();
        interpreter.mel.interrupt();
    });
    const mel::Outcome outcome = interpreter.mel.execute("for (;;) $n = 1;");
    stopper.join();
    QCOMPARE(outcome.error, std::string("line 1: Interrupted."));
}

void TestMelRobustness::catchCannotKeepAnInterruptedScriptAlive()
{
    TestInterpreter interpreter;
    interpreter.host.interruptAfter = 1;
    const std::string text = "proc spin() { while (1) {} } while (1) catchQuiet(spin());";
    QCOMPARE(interpreter.runJoined(text), std::string("E line 1: Interrupted."));
}

void TestMelRobustness::interpreterWorksOnAfterEveryFailure()
{
    TestInterpreter interpreter;
    interpreter.mel.limits().steps = 1000;
    interpreter.run("proc f() { f(); } f();");
    interpreter.run("while (1) {}");
    interpreter.run("print (");
    QCOMPARE(interpreter.runJoined("int $n = 0; while ($n < 400) $n++; print $n;"),
             std::string("> 400"));
    QVERIFY(!interpreter.mel.isRunning());
}

// Were growth quadratic, these would take minutes.
void TestMelRobustness::growingArraysAndTextsTakesLinearTime()
{
    TestInterpreter interpreter;
    const std::string text =
        "int $a[]; for ($i = 0; $i < 300000; $i++) $a[size($a)] = $i;"
        "int $sum = 0; for ($e in $a) $sum += $e;"
        "string $s; for ($i = 0; $i < 300000; $i++) $s += \"x\"; print (size($a) + size($s));";
    QVERIFY(secondsFor(interpreter, text) < 5);
    QCOMPARE(interpreter.runJoined("print (size($a) + size($s));"), std::string("> 600000"));
}

void TestMelRobustness::replacingTextTakesLinearTime()
{
    TestInterpreter interpreter;
    interpreter.run("string $s = \"ab\xc3\xa4-\"; while (size($s) < 250000) $s += $s;");
    QVERIFY(secondsFor(interpreter, "$s = substituteAllString($s, \"\xc3\xa4-ab\", \"+\");") < 5);
    // All but the first half of the first and the second half of the last.
    QCOMPARE(interpreter.runJoined("print (size($s) + substring($s, 65530, 65545));"),
             std::string("> 65539++++++++\xc3\xa4-"));
}

void TestMelRobustness::patternsTakeLinearTime()
{
    TestInterpreter interpreter;
    interpreter.run("string $s = \"a\"; while (size($s) < 100000) $s += $s;");
    QVERIFY(secondsFor(interpreter,
                       "match(\"(a*)*b\", $s); match(\"(a+)+$b\", $s); gmatch($s, \"*a*a*a*b\");") <
            5);
}

CORVANE_TEST_MAIN(TestMelRobustness)
#include "tst_melrobustness.moc"
