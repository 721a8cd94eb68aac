// SPDX-License-Identifier: MIT
// What Maya's Python says of texts, as a view shows it.
#include "bridge/pythonanalysis.h"
#include "bridge/pythonsyntaxcheck.h"
#include "editor/edcodeedit.h"
#include "standin/python/python.h"
#include "tests/standin/host/testsession.h"
#include "tests/support/testmain.h"
#include "workspace/edcodeview.h"
#include "workspace/scriptdetails.h"

#include <maya/MGlobal.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QSignalSpy>

#include <memory>

class PythonSyntaxCheckTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init() { m_session->takeMessages(); }
    void viewsShowWhatPythonSays_data();
    void viewsShowWhatPythonSays();
    void longTextsAreAnsweredLater_data();
    void longTextsAreAnsweredLater();
    void longTextsDoNotHoldUpTheInterface();
    void aCheckThatIsGoneLeavesNothing();
    void withoutItsFileACheckEnds();
    void whatPythonCannotTellIsNotValid();
    void warningsDoNotShow();
    void withoutTheScriptThereIsNoCheck();

private:
    std::unique_ptr<TestSession> m_session;
};

namespace {

// A class, function or statement per element; far beyond what is checked at once.
QString repeated(const char *piece, int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += QString::fromLatin1(piece).arg(i);
    return text;
}

QString manyFunctions(int count)
{
    return repeated(
        "def f%1(a, b=None):\n    '''Text.\n(Not code'''\n    return a + \\\n        b\n\n", count);
}

bool isAnswered(SyntaxCheck &check)
{
    QElapsedTimer clock;
    for (clock.start(); !check.isAnswered() && clock.elapsed() < 60000;)
        QTest::qWait(1);
    return check.isAnswered();
}

QStringList answerFiles()
{
    return QDir::temp().entryList(QStringList() << QLatin1String("corvane-check-*"));
}

} // namespace

void PythonSyntaxCheckTest::initTestCase()
{
    m_session = std::make_unique<TestSession>();
    (*m_session)->setPython(standin::createPythonEngine(**m_session, (*m_session)->mel()));
    QVERIFY(loadPythonAnalysis());
    qputenv("TMPDIR", m_session->folder().path().toUtf8()); // for the answers, of which some count
    EdCodeView::setBufferDirectory(QDir(m_session->folder().path()));
    setPythonSyntaxCheck(PythonSyntaxCheck::start);
}

void PythonSyntaxCheckTest::cleanupTestCase()
{
    setPythonSyntaxCheck(nullptr);
    m_session.reset();
}

void PythonSyntaxCheckTest::viewsShowWhatPythonSays_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line"); // 0 for valid
    QTest::newRow("joined-line") << "if a and \\\n   b:\n    x = 1 + \\\n2\n" << 0;
    QTest::newRow("long-decorator") << "@call(\n    1,\n  2)\ndef f():\n    pass\n" << 0;
    QTest::newRow("unclosed") << "a = 1\nb = (2,\nimport os\n" << 2;
    QTest::newRow("indent") << "a = 1\n  b = 2\n" << 2;
}

void PythonSyntaxCheckTest::viewsShowWhatPythonSays()
{
    QFETCH(QString, text);
    QFETCH(int, line);
    EdCodeView view(0, EdCodeView::Python);
    view.codeEdit()->setText(text);
    const DiagnosticList &own = ScriptDetails::of(&view).python()->errors();
    QVERIFY(own.count() > 0);
    const std::vector<EdDiagnosticMark> &shown = view.codeEdit()->errors().all();
    QCOMPARE(int(shown.size()), line == 0 ? 0 : 1 + own.count());
    if (line > 0) {
        QCOMPARE(shown.front().line + 1, line);
        QCOMPARE(shown.front().message, pythonSyntaxError(text).message);
    }
    view.removeBufferFile();
}

void PythonSyntaxCheckTest::longTextsAreAnsweredLater_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line");
    const QString functions = manyFunctions(1000);
    const QString methods = repeated("    def m%1(self):\n        return '''\n1'''\n", 2000);
    const QString numbers = repeated("    %1,  # one of many\n", 4000);
    QTest::newRow("valid") << functions << 0;
    QTest::newRow("at-the-end") << functions + "x = = 1\n" << 6001;
    QTest::newRow("at-the-start") << "x = = 1\n" + functions << 1;
    QTest::newRow("long-class") << "class A(object):\n" + methods + "\nx = 1\n" << 0;
    QTest::newRow("end-of-long-class") << "class A(object):\n" + methods + "    def (self):\n"
                                       << 6002;
    QTest::newRow("long-list") << "x = [\n" + numbers + "]\n" << 0;
    QTest::newRow("list-in-a-list") << "x = [\n" + numbers + "]]\n" << 4002;
}

void PythonSyntaxCheckTest::longTextsAreAnsweredLater()
{
    QFETCH(QString, text);
    const std::unique_ptr<SyntaxCheck> check(startPythonSyntaxCheck(text, nullptr));
    QVERIFY(check && !check->isAnswered());
    const QSignalSpy answered(check.get(), SIGNAL(answered()));
    QVERIFY(isAnswered(*check));
    QCOMPARE(answered.count(), 1);
    QVERIFY(check->answer().isKnown);
    QTEST(check->answer().line, "line");
    QCOMPARE(check->answer().message, pythonSyntaxError(text).message);
}

// How long the interface waits at most for the start of a check, or for the interpreter while a
// thread uses it.
static qint64 longestWait(const QString &text)
{
    qint64 longest = 0;
    QElapsedTimer clock;
    clock.start();
    const std::unique_ptr<SyntaxCheck> check(startPythonSyntaxCheck(text, nullptr));
    longest = clock.elapsed();
    while (!check->isAnswered()) {
        clock.start();
        QApplication::processEvents();
        MGlobal::executePythonCommand("pass");
        longest = qMax(longest, clock.elapsed());
        QTest::qSleep(1);
    }
    return longest;
}

// Never for the whole check. Other programs, and sanitizers, may get in the way.
void PythonSyntaxCheckTest::longTextsDoNotHoldUpTheInterface()
{
    const QString text = manyFunctions(10000);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(pythonSyntaxError(text).isKnown);
    const qint64 whole = clock.elapsed();
    qint64 longest = longestWait(text);
    for (int attempt = 0; attempt < 5 && longest >= whole / 2; ++attempt)
        longest = qMin(longest, longestWait(text));
    QVERIFY2(longest < whole / 2, qPrintable(QString::number(longest)));
}

void PythonSyntaxCheckTest::aCheckThatIsGoneLeavesNothing()
{
    QCOMPARE(answerFiles(), QStringList());
    std::unique_ptr<SyntaxCheck> check(startPythonSyntaxCheck(manyFunctions(2000), nullptr));
    while (answerFiles().isEmpty())
        QApplication::processEvents();
    check.reset();
    QCOMPARE(answerFiles(), QStringList());
    // The thread is still there, and must neither make the file anew nor complain.
    QElapsedTimer clock;
    int threads = 2;
    for (clock.start(); threads > 1 && clock.elapsed() < 60000;) {
        QTest::qWait(1);
        MGlobal::executePythonCommand("__import__('threading').active_count()", threads, false,
                                      false);
    }
    QCOMPARE(threads, 1);
    QCOMPARE(answerFiles(), QStringList());
    QCOMPARE(m_session->takeMessages(), QStringList());
}

// As those who clear the folder for temporary files do.
void PythonSyntaxCheckTest::withoutItsFileACheckEnds()
{
    const std::unique_ptr<SyntaxCheck> check(startPythonSyntaxCheck(manyFunctions(2000), nullptr));
    while (answerFiles().isEmpty())
        QApplication::processEvents();
    QVERIFY(QDir::temp().remove(answerFiles().first()));
    QVERIFY(isAnswered(*check));
    QVERIFY(!check->answer().isKnown);
}

// The scan's own errors stay then.
void PythonSyntaxCheckTest::whatPythonCannotTellIsNotValid()
{
    const QString text = QString("if a and \\\n   b:\n    x = 1 + \\\n2\n") + QChar(0);
    for (const QString &source : {text, text + manyFunctions(1000)}) {
        EdCodeView view(0, EdCodeView::Python);
        view.codeEdit()->setText(source);
        QVERIFY(ScriptDetails::of(&view).python()->errors().count() > 0);
        QElapsedTimer clock;
        for (clock.start(); view.codeEdit()->errors().all().empty() && clock.elapsed() < 60000;)
            QTest::qWait(1);
        QVERIFY(!view.codeEdit()->errors().all().empty());
        view.removeBufferFile();
    }
}

void PythonSyntaxCheckTest::warningsDoNotShow()
{
    const QString text = QLatin1String("x = '\\d'\ny = 1 is 1\nz = 1if 2else 3\n");
    MGlobal::executePythonCommand("import warnings; warnings.simplefilter('always')");
    m_session->takeMessages();
    for (const QString &source : {text, text + manyFunctions(1000)}) {
        const std::unique_ptr<SyntaxCheck> check(startPythonSyntaxCheck(source, nullptr));
        QVERIFY(isAnswered(*check));
        QCOMPARE(check->answer().line, 0);
    }
    QCOMPARE(m_session->takeMessages(), QStringList());
    MGlobal::executePythonCommand("warnings.resetwarnings()");
}

void PythonSyntaxCheckTest::withoutTheScriptThereIsNoCheck()
{
    MGlobal::executePythonCommand("cvParser = CorvaneParser; del CorvaneParser");
    QVERIFY(!startPythonSyntaxCheck("x = (", this));
    const std::unique_ptr<SyntaxCheck> check(startPythonSyntaxCheck(manyFunctions(1000), nullptr));
    QVERIFY(isAnswered(*check) && !check->answer().isKnown);
    MGlobal::executePythonCommand("CorvaneParser = cvParser");
}

CORVANE_TEST_MAIN(PythonSyntaxCheckTest)
#include "tst_pythonsyntaxcheck.moc"
