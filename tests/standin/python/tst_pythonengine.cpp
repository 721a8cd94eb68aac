// SPDX-License-Identifier: MIT
#include "tests/standin/python/pythontest.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QObject>

#include <thread>

Q_DECLARE_METATYPE(mel::Value)

// What reaches the host when Python texts run: messages, their order, and values.
class TestPythonEngine : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void messages_data();
    void messages();
    void exceptions_data();
    void exceptions();
    void values_data();
    void values();
    void textsShareTheirVariables();
    void nothingButTheDisplayIsMissingWhenDisplayIsOff();
    void brokenTextsAreReported_data();
    void brokenTextsAreReported();
    void replacedFormatterIsAskedFirst();
    void failingFormatterIsPassedOver();
    void redirectedStdoutKeepsItsText();
    void hugeTextsAndOutputPass();
    void readingInputMeetsItsEnd();
    void interruptStopsALoop();
    void interruptOfNothingIsForgotten();
    void newEngineBeginsAfresh();
    void exitHandlersRunWithTheHostStillThere();

private:
    mel::Outcome run(const QString &text, bool display = false)
    {
        return m_python->run(text, display);
    }
    FakeHost &host() { return m_python->host; }

    std::unique_ptr<PythonTest> m_python;
};

void TestPythonEngine::init()
{
    m_python.reset(new PythonTest);
    QVERIFY2(m_python->isStarted(), qPrintable(host().takeMessages().join("\n")));
}

void TestPythonEngine::cleanup()
{
    m_python.reset();
}

void TestPythonEngine::messages_data()
{
    columns<QString, QStringList>("text", "expected");

    row("expression-shows-its-repr", "'a' * 2", strings({"history|'a' * 2\\n", "result|'aa'"}));
    row("statement-has-no-result", "x = 5", QStringList("history|x = 5\\n"));
    row("none-has-no-result", "None", QStringList("history|None\\n"));
    row("line-break-is-not-doubled", "1\n", strings({"history|1\\n", "result|1"}));
    row("only-a-lone-expression-has-a-result", "1\n2", QStringList("history|1\\n2\\n"));
    row("comments-around-an-expression", "# a\n7 # b\n",
        strings({"history|# a\\n7 # b\\n", "result|7"}));
    row("each-write-is-a-message", "print('a')",
        strings({"history|print('a')\\n", "display|a", "display|\\n"}));
    row("output-comes-before-the-result", "len(repr(print('a')))",
        strings({"history|len(repr(print('a')))\\n", "display|a", "display|\\n", "result|4"}));
    row("empty-writes-send-nothing", "print('')", strings({"history|print('')\\n", "display|\\n"}));
    row("stderr-is-displayed-bare", "n = __import__('sys').stderr.write('w')",
        strings({"history|n = __import__('sys').stderr.write('w')\\n", "display|w"}));
    row("windows-line-breaks", "x = 1\r\nprint(x)\r\n",
        strings({"history|x = 1\r\\nprint(x)\r\\n", "display|1", "display|\\n"}));
    row("lone-surrogate-is-escaped", "print('\\ud800')",
        strings({"history|print('\\ud800')\\n", "display|\\ud800", "display|\\n"}));
    row("failing-repr-is-an-error", "type('T', (), {'__repr__': lambda s: 1 / 0})()",
        strings({"history|type('T', (), {'__repr__': lambda s: 1 / 0})()\\n",
                 "error|ZeroDivisionError: file <maya console> line 1: division by zero"}));
    row("empty-text", "", QStringList("history|\\n"));
}

void TestPythonEngine::messages()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    run(text, true);
    QCOMPARE(host().takeMessages().join("\n"), expected.join("\n"));
}

void TestPythonEngine::exceptions_data()
{
    columns<QString, QString, QString>("text", "line", "trace");

    row("name", "x", "NameError: file <maya console> line 1: name 'x' is not defined",
        "name 'x' is not defined\n"
        "# Traceback (most recent call last):\n"
        "#   File \"<maya console>\", line 1, in <module>\n"
        "# NameError: name 'x' is not defined");
    row("innermost-place", "def f():\n  raise ValueError('v')\n\nf()",
        "ValueError: file <maya console> line 2: v",
        "v\n"
        "# Traceback (most recent call last):\n"
        "#   File \"<maya console>\", line 4, in <module>\n"
        "#   File \"<maya console>\", line 2, in f\n"
        "# ValueError: v");
    row("nested-exec", "exec('1 / 0')", "ZeroDivisionError: file <string> line 1: division by zero",
        "division by zero\n"
        "# Traceback (most recent call last):\n"
        "#   File \"<maya console>\", line 1, in <module>\n"
        "#   File \"<string>\", line 1, in <module>\n"
        "# ZeroDivisionError: division by zero");
    row("syntax", "a = 1\nx = = 1", "SyntaxError: file <maya console> line 2: invalid syntax",
        "line 2: invalid syntax\n"
        "#   File \"<maya console>\", line 2\n"
        "#     x = = 1\n"
        "#         ^\n"
        "# SyntaxError: invalid syntax");
    row("leaving-is-refused", "raise SystemExit(3)", "SystemExit: file <maya console> line 1: 3",
        "3\n"
        "# Traceback (most recent call last):\n"
        "#   File \"<maya console>\", line 1, in <module>\n"
        "# SystemExit: 3");
    row("unprintable", "class E(Exception):\n  def __str__(self):\n    return 1 / 0\n\nraise E",
        "E: file <maya console> line 5: <unprintable E object>", QString());
    row("cause-is-told", "try:\n  {}['k']\nexcept KeyError as e:\n  raise RuntimeError('r') from e",
        "RuntimeError: file <maya console> line 4: r",
        "r\n"
        "# Traceback (most recent call last):\n"
        "#   File \"<maya console>\", line 2, in <module>\n"
        "# KeyError: 'k'\n"
        "# \n"
        "# The above exception was the direct cause of the following exception:\n"
        "# \n"
        "# Traceback (most recent call last):\n"
        "#   File \"<maya console>\", line 4, in <module>\n"
        "# RuntimeError: r");
    row("deep-recursion", "def f(): f()\n\nf()",
        "RecursionError: file <maya console> line 1: maximum recursion depth exceeded", QString());
}

void TestPythonEngine::exceptions()
{
    QFETCH(QString, text);
    QFETCH(QString, line);
    QFETCH(QString, trace);

    const mel::Outcome outcome = run(text);
    QVERIFY(!outcome.ok);
    QCOMPARE(QString::fromUtf8(outcome.error.c_str()), line);
    QCOMPARE(host().takeMessages(), QStringList("error|" + line));

    if (trace.isEmpty())
        return;
    host().interpreter.settings().stackTrace = true;
    QCOMPARE(QString::fromUtf8(run(text).error.c_str()), trace);
    QCOMPARE(host().takeMessages(), QStringList("error|" + trace.replace("\n", "\\n")));
}

void TestPythonEngine::values_data()
{
    columns<QString, mel::Value>("text", "expected");

    row("int", "6 * 7", mel::Value(42));
    row("truth", "1 < 2", mel::Value(1));
    row("largest-int", "2 ** 31 - 1", mel::Value(2147483647));
    row("larger-than-int", "2 ** 31", mel::Value(std::string("2147483648")));
    row("larger-than-any-machine-word", "-10 ** 30",
        mel::Value(std::string("-1000000000000000000000000000000")));
    row("float", "1 / 4", mel::Value(0.25));
    row("text", "'\\u00e4'", mel::Value(std::string("\xC3\xA4")));
    row("statement", "x = 1", mel::Value());
    row("ints", "[1, True]", mel::Value(mel::IntArray{1, 1}));
    row("floats", "(1, 2.5)", mel::Value(mel::FloatArray{1, 2.5}));
    row("mixed", "['a', 1, None]", mel::Value(mel::StringArray{"a", "1", "None"}));
    row("empty-list", "[]", mel::Value(mel::StringArray()));
    row("lists-within", "[[1], [2]]", mel::Value(mel::StringArray{"[1]", "[2]"}));
    row("anything-else", "{'a': 1}", mel::Value(std::string("{'a': 1}")));
}

void TestPythonEngine::values()
{
    QFETCH(QString, text);
    QFETCH(mel::Value, expected);
    const mel::Outcome outcome = run(text);
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.value.index(), expected.index());
    QCOMPARE(mel::printText(outcome.value).c_str(), mel::printText(expected).c_str());
}

void TestPythonEngine::textsShareTheirVariables()
{
    run("shared = __name__");
    QCOMPARE(m_python->value("shared"), QString("__main__"));
}

void TestPythonEngine::nothingButTheDisplayIsMissingWhenDisplayIsOff()
{
    run("print('kept')");
    run("'value'");
    QCOMPARE(host().takeMessages(), strings({"display|kept", "display|\\n"}));
}

void TestPythonEngine::brokenTextsAreReported_data()
{
    columns<QByteArray, QString>("text", "reason");

    row("nul", QByteArray("a = 1\0b", 7), "null bytes");
    row("no-utf8", QByteArray("x = '\xED\xA0\x80'"), "can't decode byte");
    row("open-string", QByteArray("x = 'abc"), "SyntaxError: file <maya console> line 1");
    row("deep-nesting", QByteArray(100000, '('), "Error: file <maya console>");
}

void TestPythonEngine::brokenTextsAreReported()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, reason);
    const std::string source(text.constData(), static_cast<size_t>(text.size()));
    QVERIFY(!m_python->engine().execute(source, false).ok);
    const QStringList messages = host().takeMessages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith("error|") && messages[0].contains(reason),
             qPrintable(messages[0]));
    QVERIFY(run("1").ok);
}

void TestPythonEngine::replacedFormatterIsAskedFirst()
{
    run("import maya.utils\n"
        "saved = maya.utils.formatGuiException\n"
        "maya.utils.formatGuiException = lambda t, o, b, detail=2: '%s %d' % (o, detail)");
    run("raise ValueError('mine')");
    QCOMPARE(host().takeMessages(), QStringList("error|mine 1"));
    QVERIFY(run("maya.utils.formatGuiException = saved").ok);
}

void TestPythonEngine::failingFormatterIsPassedOver()
{
    run("import maya.utils\n"
        "saved = maya.utils.formatGuiException\n"
        "maya.utils.formatGuiException = None");
    run("raise ValueError('mine')");
    QCOMPARE(host().takeMessages(),
             QStringList("error|ValueError: file <maya console> line 1: mine"));
    QVERIFY(run("maya.utils.formatGuiException = saved").ok);
}

void TestPythonEngine::redirectedStdoutKeepsItsText()
{
    run("import io, sys\n"
        "sys.stdout = io.StringIO()\n"
        "print('inside')\n"
        "text = sys.stdout.getvalue()\n"
        "sys.stdout = None");
    run("print('into nothing')");
    QCOMPARE(host().takeMessages(), QStringList());
    QCOMPARE(m_python->value("text"), QString("inside\n"));
    QCOMPARE(m_python->value("type(sys.stderr)"), QString("<class 'maya.Output'>"));
}

void TestPythonEngine::hugeTextsAndOutputPass()
{
    QString text;
    for (int line = 0; line < 100000; ++line)
        text += QString("x = %1\n").arg(line);
    QVERIFY(run(text).ok);
    QCOMPARE(std::get<int>(run("x").value), 99999);

    run("print('a' * 10000000)\nfor i in range(20000): print(i)");
    QCOMPARE(host().takeDisplayed().size(),
             10000001 + 10 * 2 + 90 * 3 + 900 * 4 + 9000 * 5 + 10000 * 6);
}

void TestPythonEngine::readingInputMeetsItsEnd()
{
    run("input('name? ')");
    QCOMPARE(host().takeMessages(),
             strings({"display|name? ", "error|EOFError: file <maya console> line 1: "
                                        "EOF when reading a line"}));
    QCOMPARE(m_python->value("__import__('sys').stdin.read()"), QString());
}

void TestPythonEngine::interruptStopsALoop()
{
    std::thread user([this] {
        while (host().takeDisplayed().isEmpty())
            std::this_thread::yield();
        m_python->engine().interrupt();
    });
    const mel::Outcome outcome = run("print('started')\nwhile True: pass");
    user.join();
    QVERIFY(!outcome.ok);
    QVERIFY2(outcome.error.find("KeyboardInterrupt") == 0, outcome.error.c_str());
}

void TestPythonEngine::interruptOfNothingIsForgotten()
{
    m_python->engine().interrupt();
    QVERIFY(run("for i in range(1000): pass").ok);
}

void TestPythonEngine::newEngineBeginsAfresh()
{
    run("left = 1\nimport json");
    cleanup();
    init();
    QVERIFY(!run("left").ok);
    QVERIFY(run("import json\nprint(json.dumps([1]))").ok);
    QCOMPARE(host().takeDisplayed().right(4), QString("[1]\n"));
}

void TestPythonEngine::exitHandlersRunWithTheHostStillThere()
{
    run("import atexit\natexit.register(lambda: print('bye'))");
    m_python->endEngine();
    QCOMPARE(host().takeDisplayed(), QString("bye\n"));
}

CORVANE_TEST_MAIN(TestPythonEngine)
#include "tst_pythonengine.moc"
