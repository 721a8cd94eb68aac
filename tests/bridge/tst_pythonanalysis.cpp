// SPDX-License-Identifier: MIT
#include "bridge/mayaversions.h"
#include "bridge/forcedimports.h"
#include "bridge/outputsuppression.h"
#include "bridge/pythonanalysis.h"
#include "bridge/pythontext.h"
#include "editor/pythoncompletion.h"
#include "preferences/preferences.h"
#include "standin/python/python.h"
#include "tests/standin/host/testsession.h"
#include "tests/support/caretnotation.h"
#include "tests/support/lineartime.h"
#include "tests/support/testmain.h"

#include <maya/MCommandMessage.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MQtUtil.h>

#include <QTextDocument>

#include <cstdlib>
#include <memory>
#include <vector>

class PythonAnalysisTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init() { m_session->takeMessages(); }
    void versionsAreThoseOfTheHost();
    void literalsAreOneLineOfText();
    void everyCharacterArrivesInPython();
    void longTextIsQuotedInTime();
    void candidatesAreThoseOfTheCaret();
    void preferencesDecideOnKeywordsAndBuiltins();
    void membersComeWithoutKeywords();
    void syntaxErrorsHaveMessageAndLine();
    void statementsRunAmongTheUsersNames();
    void nothingShowsAndNothingIsRaised();
    void questionsHaveTheirAnswers();
    void forcedImportsAreImportedOnceAndAssumed();
    void completionsAreNamesInReach_data();
    void completionsAreNamesInReach();

private:
    std::unique_ptr<TestSession> m_session;
};

namespace {

const char caret[] = "__corvane_lctr_kvrt__";

// What Python makes of the literal, one element per character.
std::vector<int> throughPython(const QString &text)
{
    MIntArray characters;
    MGlobal::executePythonCommand(MQtUtil::toMString(QLatin1String("[ord(c) for c in ") +
                                                     quotedForPython(text) + QLatin1String("]")),
                                  characters);
    std::vector<int> result;
    for (unsigned int i = 0; i < characters.length(); ++i)
        result.push_back(characters[i]);
    return result;
}

std::vector<int> charactersOf(const QString &text)
{
    std::vector<int> result;
    for (int i = 0; i < text.size(); ++i) {
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        result.push_back(isPair ? int(QChar::surrogateToUcs4(text.at(i), text.at(i + 1)))
                                : text.at(i).unicode());
        i += isPair ? 1 : 0;
    }
    return result;
}

QStringList candidates(const char *source, const char *object = "",
                       PythonNames names = PythonNames::Any)
{
    return pythonCandidates(QString::fromLatin1(source), QString::fromLatin1(object), names);
}

} // namespace

void PythonAnalysisTest::initTestCase()
{
    m_session = std::make_unique<TestSession>();
    (*m_session)->setPython(standin::createPythonEngine(**m_session, (*m_session)->mel()));
    QVERIFY(loadPythonAnalysis());
    QVERIFY(m_session->takeMessages().isEmpty());
}

void PythonAnalysisTest::cleanupTestCase()
{
    m_session.reset();
}

void PythonAnalysisTest::versionsAreThoseOfTheHost()
{
    const HostVersions versions = mayaVersions();
    QVERIFY(versions.maya.startsWith("20"));
    QVERIFY2(versions.python.count('.') >= 2, qPrintable(versions.python));
    QVERIFY(m_session->takeMessages().isEmpty());
}

void PythonAnalysisTest::literalsAreOneLineOfText()
{
    QCOMPARE(quotedForPython(QString()), QString("\"\""));
    QCOMPARE(quotedForPython("say \"a\\b\"\n\t1"), QString("\"say \\\"a\\\\b\\\"\\x0a\\x091\""));
    QCOMPARE(quotedForPython(QString(QChar(0xd83d)) + QChar(0x2029)),
             QLatin1String("\"\\ud83d") + QChar(0x2029) + QLatin1String("\""));
}

void PythonAnalysisTest::everyCharacterArrivesInPython()
{
    QString all;
    for (int unit = 0; unit < 0x10000; ++unit)
        all += QChar(ushort(unit)); // halves of pairs meet once, in the middle
    QVERIFY(throughPython(all) == charactersOf(all));

    QString beyond;
    for (uint character = 0x10000; character < 0x110000; character += 31)
        beyond +=
            QString(QChar(QChar::highSurrogate(character))) + QChar(QChar::lowSurrogate(character));
    QVERIFY(throughPython(beyond) == charactersOf(beyond));

    const QString alphabet = QString::fromUtf8("\"\\'nux0\n\r {}%\xc3\xa4\xf0\x9f\x98\x80");
    for (int round = 0; round < 200; ++round) {
        QString text;
        for (int i = std::rand() % 30; i > 0; --i)
            text += alphabet.at(std::rand() % int(alphabet.size()));
        QVERIFY2(throughPython(text) == charactersOf(text), qPrintable(quotedForPython(text)));
    }
}

void PythonAnalysisTest::longTextIsQuotedInTime()
{
    for (const char *pattern : {"a", "\"", "\n"})
        QCOMPARE(slowness(longText(pattern), quotedForPython), QString());
    QCOMPARE(slowness(QString(1000000, QChar(0xdc00)), quotedForPython), QString());
}

void PythonAnalysisTest::candidatesAreThoseOfTheCaret()
{
    const QStringList found = candidates("import maya.cmds as cmds\ndef build(side):\n    pass\n");
    QVERIFY(found.contains("cmds") && found.contains("build"));
    QVERIFY(candidates("import maya.cmds as cmds\n", "cmds").contains("optionVar"));
    const QString method =
        QLatin1String("class A(object):\n    def f(self):\n        self.x = 1\n        ") +
        QLatin1String(caret) + QLatin1String(" = 1\n");
    QVERIFY(pythonCandidates(method, "self", PythonNames::Members).contains("x"));
    QVERIFY(candidates("x = '\xe4'\n'''\"\\\n'''\nname = 1\n").contains("name"));
}

void PythonAnalysisTest::preferencesDecideOnKeywordsAndBuiltins()
{
    const Preferences before = preferences();
    preferences().pythonIncludeKeywords = true;
    preferences().pythonIncludeBuiltins = false;
    QVERIFY(candidates("").contains("while"));
    QVERIFY(!candidates("").contains("isinstance"));
    preferences().pythonIncludeKeywords = false;
    preferences().pythonIncludeBuiltins = true;
    QVERIFY(!candidates("").contains("while"));
    QVERIFY(candidates("").contains("isinstance"));
    preferences() = before;
}

void PythonAnalysisTest::membersComeWithoutKeywords()
{
    const QStringList found = candidates("x = 1\n", "", PythonNames::Members);
    QVERIFY(found.contains("x"));
    QVERIFY(!found.contains("while") && !found.contains("isinstance"));
}

void PythonAnalysisTest::syntaxErrorsHaveMessageAndLine()
{
    const SyntaxAnswer valid = pythonSyntaxError("def f(a):\n    return a\n");
    QVERIFY(valid.isKnown && valid.message.isEmpty());
    const SyntaxAnswer error = pythonSyntaxError("def f(a\n    return a\n");
    QVERIFY(!error.message.isEmpty() && !error.message.contains(" ("));
    QCOMPARE(error.line, 1);
}

void PythonAnalysisTest::statementsRunAmongTheUsersNames()
{
    QVERIFY(executePythonStatement("cvAnswer = 'a\"\\\\b'"));
    QVERIFY(!executePythonStatement("1 / 0"));
    QVERIFY(!executePythonStatement("def"));
    int length = 0;
    MGlobal::executePythonCommand("len(cvAnswer)", length);
    QCOMPARE(length, 4);
}

void PythonAnalysisTest::nothingShowsAndNothingIsRaised()
{
    static int shown;
    shown = 0;
    const MCallbackId id = MCommandMessage::addCommandOutputCallback(
        [](const MString &, MCommandMessage::MessageType, void *) {
            shown += isOutputSuppressed() ? 0 : 1;
        });
    executePythonStatement("import sys\nx = sys.stdout.write('printed')");
    candidates("def (:\n  ]]", "nothing.at.all");
    MGlobal::executePythonCommand("cvParser = CorvaneParser; del CorvaneParser");
    QVERIFY(candidates("x = 1\n").isEmpty());
    QVERIFY(!executePythonStatement("x = 1"));
    QVERIFY(!pythonSyntaxError("def").isKnown);
    MGlobal::executePythonCommand("CorvaneParser = cvParser");
    MMessage::removeCallback(id);
    QCOMPARE(shown, 0);
    QVERIFY(!isOutputSuppressed());
}

void PythonAnalysisTest::questionsHaveTheirAnswers()
{
    const auto has = [](PythonQuestion question, const char *object, const char *name) {
        const QString source = QLatin1String("import os\n") + QLatin1String(caret);
        return pythonAnswer(question, source, QString::fromLatin1(object))
            .contains(QString::fromLatin1(name));
    };
    QVERIFY(has(PythonQuestion::NamesInScope, "", "os"));
    QVERIFY(has(PythonQuestion::Members, "os", "module path"));
    QVERIFY(has(PythonQuestion::Modules, "", "xml") && has(PythonQuestion::Modules, "", "maya"));
    QVERIFY(has(PythonQuestion::Modules, "maya", "cmds"));
    QVERIFY(has(PythonQuestion::NamesInModule, "maya.cmds", "name optionVar"));
    QVERIFY(has(PythonQuestion::ExportedNames, "os.path", "function join"));
    QVERIFY(has(PythonQuestion::Keywords, "", "while"));
    QVERIFY(has(PythonQuestion::BuiltIns, "", "len"));
    QVERIFY(has(PythonQuestion::OtherBuiltIns, "", "ValueError"));
}

void PythonAnalysisTest::forcedImportsAreImportedOnceAndAssumed()
{
    const Preferences before = preferences();
    executePythonStatement("import sys, types\ncvModule = types.ModuleType('cvModule')\n"
                           "sys.modules['cvModule'] = cvModule\ncvModule.part = 1\ndel cvModule");
    preferences().pythonForcedImports = " xml.dom ; 1st;a b;cvModule;cvNone;x=1";
    importForcedModules();
    QCOMPARE(m_session->takeMessages().join("|"),
             QString("warning: [CorvaneEditor] Skipping invalid forced import: 1st|"
                     "warning: [CorvaneEditor] Skipping invalid forced import: a b|"
                     "warning: [CorvaneEditor] Forced import failed: cvNone|"
                     "warning: [CorvaneEditor] Skipping invalid forced import: x=1"));
    QVERIFY(executePythonStatement("xml.dom, cvModule.part"));
    QVERIFY(candidates("x = 1\n").contains("cvModule"));
    QVERIFY(candidates("x = 1\n", "cvModule", PythonNames::Members).contains("part"));

    executePythonStatement("del cvModule");
    importForcedModules();
    QVERIFY(!executePythonStatement("cvModule")); // it was imported already
    preferences().pythonForcedImports = "";
    importForcedModules();
    preferences().pythonForcedImports = "cvModule";
    importForcedModules();
    QVERIFY(executePythonStatement("cvModule"));
    preferences() = before;
}

void PythonAnalysisTest::completionsAreNamesInReach_data()
{
    QTest::addColumn<QString>("drawing");
    QTest::addColumn<QString>("offered"); // names with "-" before them are not

    const auto row = [](const char *tag, const char *drawing, const char *offered) {
        QTest::newRow(tag) << QString::fromLatin1(drawing) << QString::fromLatin1(offered);
    };
    const char shape[] = "class A(object):\n    def grow(self): self.size = 1\n"
                         "class B(A):\n    def f(self, arg):\n        here = (\n        %1|\n"
                         "    def g(self): pass\nb = B()\n";
    const auto inside = [&shape](const char *text) {
        return QString(QLatin1String(shape)).arg(QLatin1String(text)).toLatin1();
    };
    row("self", inside("self.").constData(), "f g grow size -arg -B");
    row("super", inside("super(B, self).").constData(), "grow __init__ -f");
    row("instance", inside("x(b.").constData(), "f grow -b");
    row("new-instance", inside("A().gr").constData(), "grow size -f");
    row("scope", inside("a").constData(), "arg A B b while len -f -grow");
    row("commands", "import maya.cmds as mc\ndef f(:\n  mc.|\n)]", "optionVar -mc");
    row("string", "','.|", "join -while");
    row("function-inside", "def f():\n  def g(x):\n    y = 1\n    |", "f g x y");
    row("function-beside", "def f():\n  def g(x):\n    y = 1\n  |", "f g -x -y");
    row("imports", "import os.|", "path -join");
    row("imported-names", "from os.path import (split, |", "join -self");
    row("new-method", "class T(dict):\n    def |", "__init__ keys -T");
}

void PythonAnalysisTest::completionsAreNamesInReach()
{
    QFETCH(QString, drawing);
    QFETCH(QString, offered);
    setPythonNameSource(pythonAnswer);
    QTextDocument document;
    QStringList found;
    for (const Completion &item :
         PythonCompletion().completionsAt(setDrawing(&document, drawing)).items)
        found << item.text;
    setPythonNameSource(nullptr);
    for (const QString &name : offered.split(' ')) {
        const bool isUnwanted = name.startsWith('-');
        QVERIFY2(found.contains(name.mid(isUnwanted)) != isUnwanted, qPrintable(name));
    }
}

CORVANE_TEST_MAIN(PythonAnalysisTest)
#include "tst_pythonanalysis.moc"
