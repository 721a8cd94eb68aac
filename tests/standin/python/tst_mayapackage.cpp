// SPDX-License-Identifier: MIT
#include "tests/standin/python/pythontest.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QObject>

namespace {

using mel::ArgumentKind;

// Answers with the words it got, as a plug-in command gets them.
mel::Command wordsCommand()
{
    mel::Command command;
    command.name = "words";
    command.rawWords = true;
    command.run = [](mel::Call &call) -> mel::Value {
        std::vector<std::string> words;
        for (const mel::Value &word : call.objects)
            words.push_back(mel::printText(word));
        return words;
    };
    command.flags = {{"t", "title", {ArgumentKind::String}},
                     {"w", "watch", {ArgumentKind::String}, true},
                     {"vis", "visible", {ArgumentKind::Boolean}},
                     {"wh", "widthHeight", {ArgumentKind::Int, ArgumentKind::Int}},
                     {"cw", "columnWidth", {ArgumentKind::Int, ArgumentKind::Int}, true},
                     {"c", "command", {ArgumentKind::Script}},
                     {"stp", "sourceType", {ArgumentKind::String}},
                     {"f", "force"}};
    return command;
}

mel::Command answering(const char *name, const mel::Value &value)
{
    mel::Command command;
    command.name = name;
    command.run = [value](mel::Call &) { return value; };
    command.flags = {{"ex", "exists", {}}, {"vis", "visible", {ArgumentKind::Boolean}}};
    command.queryable = true;
    return command;
}

} // namespace

// What scripts find in the `maya` package.
class TestMayaPackage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_python.reset(); }

    void callsBecomeWords_data();
    void callsBecomeWords();
    void badCallsAreRefused_data();
    void badCallsAreRefused();
    void answersHavePythonTypes_data();
    void answersHavePythonTypes();
    void commandsComeAndGo();
    void proceduresAreNoCommands();
    void failingCommandIsReportedOnce();
    void scriptsGivenFromPythonArePython();
    void melTextHasItsValue_data();
    void melTextHasItsValue();
    void failingMelRaises();
    void languagesCallEachOther();
    void endlessMutualCallsEnd();
    void deferredCallsKeepTheirOrder();
    void failingDeferredCallIsReported();
    void everyModuleCanBeImported();
    void modulesAreListed();
    void globalSendsMessages();
    void failuresOfGlobalAreAtTheCall_data();
    void failuresOfGlobalAreAtTheCall();

private:
    void addCommand(const mel::Command &command)
    {
        QVERIFY(m_python->host.interpreter.addCommand(command));
    }
    QString value(const QString &expression) { return m_python->value(expression); }

    std::unique_ptr<PythonTest> m_python;
};

void TestMayaPackage::init()
{
    m_python.reset(new PythonTest);
    QVERIFY(m_python->isStarted());
    addCommand(wordsCommand());
    m_python->run("import maya.cmds as cmds, maya.mel as mel, maya.utils as utils");
}

void TestMayaPackage::callsBecomeWords_data()
{
    columns<QString, QString>("arguments", "expected");

    row("none", "", "");
    row("objects-follow-flags", "'a', 2, title='x'", "-title x a 2");
    row("short-name", "t='x'", "-title x");
    row("list-of-objects", "['a', 'b'], 'c'", "a b c");
    row("modes-come-first", "'a', title=True, q=True", "-q -title a");
    row("long-mode", "edit=True, force=True", "-e -force");
    row("mode-not-wanted", "q=False, title='x'", "-title x");
    row("switch-off", "force=False", "");
    row("truth-values", "visible=False", "-visible 0");
    row("several-arguments", "wh=(3, 4)", "-widthHeight 3 4");
    row("several-uses", "w=['a', 'b']", "-watch a -watch b");
    row("one-use-of-many", "w='a'", "-watch a");
    row("one-use-of-two-arguments", "cw=(1, 50)", "-columnWidth 1 50");
    row("script-in-a-named-language", "c='x', stp='mel'", "-command x -sourceType mel");
    row("uses-of-two-arguments", "cw=[(1, 50), (2, 60)]", "-columnWidth 1 50 -columnWidth 2 60");
}

void TestMayaPackage::callsBecomeWords()
{
    QFETCH(QString, arguments);
    QFETCH(QString, expected);
    QCOMPARE(value("' '.join(cmds.words(" + arguments + "))"), expected);
}

void TestMayaPackage::badCallsAreRefused_data()
{
    columns<QString, QString>("text", "expected");

    row("unknown-flag", "cmds.words(nope=1)",
        "TypeError: file <maya console> line 1: Invalid flag 'nope'");
    row("none-as-argument", "cmds.words(None)",
        "TypeError: file <maya console> line 1: None is no argument of a command");
    row("failing-text", "cmds.words(type('T', (), {'__str__': lambda s: 1 / 0})())",
        "ZeroDivisionError: file <maya console> line 1: division by zero");
    row("unknown-command", "cmds.nope()",
        "AttributeError: file <maya console> line 1: module 'maya.cmds' has no attribute 'nope'");
}

void TestMayaPackage::badCallsAreRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    m_python->run(text);
    QCOMPARE(m_python->host.takeMessages(), QStringList("error|" + expected));
}

void TestMayaPackage::answersHavePythonTypes_data()
{
    columns<QString, QString>("call", "expected");

    row("number", "cmds.number()", "1");
    row("queried-truth-value", "cmds.number(q=True, visible=True)", "True");
    row("existence", "cmds.number(exists=True)", "True");
    row("nothing", "cmds.nothing()", "None");
    row("vector", "cmds.place()", "[1.0, 2.5, 3.0]");
    row("numbers", "cmds.numbers()", "[4, 5]");
}

void TestMayaPackage::answersHavePythonTypes()
{
    addCommand(answering("number", 1));
    addCommand(answering("nothing", {}));
    addCommand(answering("place", mel::Vector{1, 2.5, 3}));
    addCommand(answering("numbers", mel::IntArray{4, 5}));
    QFETCH(QString, call);
    QFETCH(QString, expected);
    QCOMPARE(value(call), expected);
}

void TestMayaPackage::commandsComeAndGo()
{
    QCOMPARE(value("hasattr(cmds, 'late'), 'late' in dir(cmds)"), QString("(False, False)"));
    addCommand(answering("late", 7));
    QCOMPARE(value("cmds.late(), 'late' in dir(cmds), cmds.late.__name__"),
             QString("(7, True, 'late')"));
    m_python->run("kept = cmds.late\nfrom maya.cmds import *");
    QCOMPARE(value("late()"), QString("7"));

    m_python->host.interpreter.removeCommand("late");
    QCOMPARE(value("hasattr(cmds, 'late'), 'late' in dir(cmds)"), QString("(False, False)"));
    QCOMPARE(value("kept()"), QString("RuntimeError: file <maya console> line 1: "
                                      "Cannot find procedure \"late\"."));
}

void TestMayaPackage::proceduresAreNoCommands()
{
    m_python->run("mel.eval('global proc int ownProcedure() { return 1; }')");
    QCOMPARE(value("hasattr(cmds, 'ownProcedure')"), QString("False"));
    // A procedure of the same name hides a command from MEL, not from Python.
    m_python->run("mel.eval('global proc words() {}')");
    QCOMPARE(value("cmds.words('a')"), QString("['a']"));
}

void TestMayaPackage::failingCommandIsReportedOnce()
{
    mel::Command failing = answering("failing", {});
    failing.run = [](mel::Call &) -> mel::Value { throw mel::RuntimeError("No luck."); };
    addCommand(failing);
    m_python->run("cmds.failing()");
    QCOMPARE(m_python->host.takeMessages(),
             QStringList("error|RuntimeError: file <maya console> line 1: No luck."));
    m_python->run("try: cmds.failing()\nexcept RuntimeError as error: text = str(error)");
    QCOMPARE(m_python->host.takeMessages(), QStringList());
    QCOMPARE(value("text"), QString("No luck."));
}

void TestMayaPackage::scriptsGivenFromPythonArePython()
{
    mel::Command python;
    python.name = "python";
    python.run = [this](mel::Call &call) {
        return m_python->host.executePython(call.objectText(0), false).value;
    };
    addCommand(python);

    m_python->run("text = cmds.words(c='said = \"a\\\\\\\\b\"\\nmore = 1')[1]\nmel.eval(text)");
    QCOMPARE(value("said, more"), QString("('a\\\\b', 1)"));
    m_python->run("mel.eval(cmds.words(c=lambda state: globals().update(state=state))[1])");
    QCOMPARE(value("state"), QString("False"));
}

void TestMayaPackage::melTextHasItsValue_data()
{
    columns<QString, QString>("text", "expected");

    row("int", "$a = 3 + 4", "7");
    row("float", "1.0 / 4", "0.25");
    row("string", "\"a\" + 1", "a1");
    row("array", "$l = {\"a\", \"b\"}", "['a', 'b']");
    row("nothing", "print \"\"", "None");
}

void TestMayaPackage::melTextHasItsValue()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(value("mel.eval('" + text + "')"), expected);
}

void TestMayaPackage::failingMelRaises()
{
    m_python->run("mel.eval('error \"broken\"')");
    QCOMPARE(
        m_python->host.takeMessages(),
        QStringList() << "error|line 1: broken"
                      << "error|RuntimeError: file <maya console> line 1: Error occurred during "
                         "execution of MEL script\\nline 1: broken");
    QVERIFY(m_python->run("try: mel.eval('nope')\nexcept RuntimeError: pass").ok);
    QCOMPARE(value("mel.eval(None)"),
             QString("TypeError: file <maya console> line 1: argument must be str, not NoneType"));
}

void TestMayaPackage::languagesCallEachOther()
{
    mel::Command python;
    python.name = "python";
    python.run = [this](mel::Call &call) {
        return m_python->host.executePython(call.objectText(0), false).value;
    };
    addCommand(python);
    m_python->run("def down(n):\n"
                  "  return n if n == 0 else 1 + mel.eval('python(\"down(%d)\")' % (n - 1))\n");
    QCOMPARE(value("down(10)"), QString("10"));
}

void TestMayaPackage::endlessMutualCallsEnd()
{
    mel::Command python;
    python.name = "python";
    python.run = [this](mel::Call &call) {
        const mel::Outcome outcome = m_python->host.executePython(call.objectText(0), false);
        if (!outcome.ok)
            throw mel::RuntimeError(outcome.error);
        return outcome.value;
    };
    addCommand(python);
    m_python->run("def endless(): return mel.eval('python(\"endless()\")')\n");
    QVERIFY(!m_python->run("endless()").ok);
    QVERIFY(m_python->run("1").ok);
}

void TestMayaPackage::deferredCallsKeepTheirOrder()
{
    m_python->run("def say(*words, **named): print(list(words), named)\n"
                  "utils.executeDeferred(say, 1, a=2)\n"
                  "utils.executeDeferred('print(\"text\")')\n"
                  "utils.executeDeferred(say)\n"
                  "print('at once')");
    QCOMPARE(m_python->host.takeDisplayed(), QString("at once\n"));
    m_python->run("utils.processIdleEvents()");
    QCOMPARE(m_python->host.takeDisplayed(), QString("[1] {'a': 2}\ntext\n[] {}\n"));
}

void TestMayaPackage::failingDeferredCallIsReported()
{
    m_python->host.interpreter.settings().stackTrace = true;
    m_python->run("def fail(): raise ValueError('late')\n"
                  "utils.executeDeferred(fail)\n"
                  "utils.processIdleEvents()");
    QCOMPARE(m_python->host.takeMessages(),
             QStringList("error|late\\n"
                         "# Traceback (most recent call last):\\n"
                         "#   File \"<maya console>\", line 1, in fail\\n"
                         "# ValueError: late"));
}

void TestMayaPackage::everyModuleCanBeImported()
{
    const char *const names[] = {
        "maya.OpenMaya",     "maya.OpenMayaAnim",   "maya.OpenMayaFX",
        "maya.OpenMayaMPx",  "maya.OpenMayaUI",     "maya.OpenMayaRender",
        "maya.api.OpenMaya", "maya.api.OpenMayaUI", "maya.api.OpenMayaAnim"};
    for (const char *name : names)
        QVERIFY2(m_python->run(QString("import %1").arg(name)).ok, name);
    QVERIFY(!m_python->run("import maya.nothing").ok);
    QCOMPARE(value("maya.utils.__name__"), QString("maya.utils"));
}

void TestMayaPackage::modulesAreListed()
{
    m_python->run("import maya, pkgutil");
    QCOMPARE(value("' '.join(m[1] for m in pkgutil.iter_modules(maya.__path__, 'maya.'))"),
             QString("maya.OpenMaya maya.OpenMayaAnim maya.OpenMayaFX maya.OpenMayaMPx "
                     "maya.OpenMayaRender maya.OpenMayaUI maya.api maya.cmds maya.mel maya.utils"));
    QCOMPARE(value("' '.join(m[1] for m in pkgutil.iter_modules(maya.api.__path__))"),
             QString("OpenMaya OpenMayaAnim OpenMayaRender OpenMayaUI"));
    QCOMPARE(value("' '.join(m[1] for m in pkgutil.walk_packages(maya.__path__, 'maya.')"
                   " if m[1].startswith('maya.a'))"),
             QString("maya.api maya.api.OpenMaya maya.api.OpenMayaAnim maya.api.OpenMayaRender "
                     "maya.api.OpenMayaUI"));
    QCOMPARE(value("__import__('inspect').getsource(utils.processIdleEvents).split('\\n')[0]"),
             QString("def processIdleEvents():"));
}

void TestMayaPackage::globalSendsMessages()
{
    m_python->run("from maya.OpenMaya import MGlobal\n"
                  "MGlobal.displayInfo('i')\n"
                  "MGlobal.displayWarning('w')\n"
                  "MGlobal.displayError('e')");
    QCOMPARE(m_python->host.takeMessages(), words("info|i warning|w error|e"));
    QCOMPARE(value("MGlobal.executeCommandStringResult('1 + 2')"), QString("3"));
    QCOMPARE(value("MGlobal.executeCommand('1 + 2', undoEnabled=True)"), QString("None"));
}

void TestMayaPackage::failuresOfGlobalAreAtTheCall_data()
{
    QTest::addColumn<QString>("call");
    row("failing-mel", "executeCommand('noSuchThing')");
    row("failing-mel-with-result", "executeCommandStringResult('noSuchThing')");
    row("missing-file", "sourceFile('/no/such.mel')");
    row("no-text", "displayInfo(1)");
}

// Neither as the place nor in the trace may a file of the package show.
void TestMayaPackage::failuresOfGlobalAreAtTheCall()
{
    QFETCH(QString, call);
    for (bool stackTrace : {false, true}) {
        m_python->host.interpreter.settings().stackTrace = stackTrace;
        QVERIFY(!m_python->run("import maya.OpenMaya as om\nom.MGlobal." + call).ok);
        const QString message = m_python->host.takeMessages().last();
        QVERIFY2(message.contains("<maya console>") && !message.contains("<maya package>"),
                 qPrintable(message));
    }
}

CORVANE_TEST_MAIN(TestMayaPackage)
#include "tst_mayapackage.moc"
