// SPDX-License-Identifier: MIT
#include "bridge/syntaxcheck.h"
#include "editor/edcodeedit.h"
#include "preferences/preferences.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcodeview.h"
#include "workspace/scriptdetails.h"

#include <QDir>
#include <QPointer>
#include <QTextCursor>

#include <memory>

namespace {

// An interpreter that answers when the test says so.
class TestCheck : public SyntaxCheck
{
public:
    explicit TestCheck(QObject *parent) : SyntaxCheck(parent) {}
    void give(int line, const char *message)
    {
        SyntaxAnswer answer;
        answer.isKnown = line >= 0;
        answer.line = line;
        answer.message = QLatin1String(message);
        setAnswer(answer);
        emit answered();
    }
};

QPointer<TestCheck> lastCheck;
int checkCount;
bool answersValidAtOnce;

SyntaxCheck *startTestCheck(const QString &, QObject *parent)
{
    ++checkCount;
    lastCheck = new TestCheck(parent);
    if (answersValidAtOnce)
        lastCheck->give(0, "");
    return lastCheck;
}

const char unclosed[] = "a = (1\nb = 2\nimport os\n";

} // namespace

class ScriptDetailsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void nothingIsParsedTwice();
    void everyChangeIsParsed();
    void theLanguageDecidesTheParser();
    void withoutAnInterpreterTheParserIsBelieved();
    void errorsOfValidTextAreNotShown();
    void theInterpreterComesFirst();
    void messagesStandOnCode_data();
    void messagesStandOnCode();
    void shownErrorsStayUntilTheAnswer();
    void anAnswerOnAnOldTextIsDropped();
    void theInterpreterIsAskedOnlyAboutErrors();
    void aViewMayGoBeforeItsAnswer();

private:
    void setText(const char *text) { edit()->setText(QLatin1String(text)); }
    EdCodeEdit *edit() { return m_view->codeEdit(); }
    const ScriptDetails &details() { return ScriptDetails::of(m_view.get()); }
    QStringList errors();

    std::unique_ptr<ScratchDir> m_folder;
    std::unique_ptr<EdCodeView> m_view;
};

void ScriptDetailsTest::init()
{
    m_folder = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_folder->path()));
    m_view = std::make_unique<EdCodeView>(0, EdCodeView::Python);
    checkCount = 0;
    answersValidAtOnce = false;
    setPythonSyntaxCheck(startTestCheck);
}

void ScriptDetailsTest::cleanup()
{
    setPythonSyntaxCheck(nullptr);
    m_view.reset();
    m_folder.reset();
    preferences() = Preferences();
}

// "line: message" of those that the editor shows, lines counted from 1.
QStringList ScriptDetailsTest::errors()
{
    QStringList shown;
    for (const EdDiagnosticMark &mark : edit()->errors().all())
        shown << QString::number(mark.line + 1) + QLatin1String(": ") + mark.message;
    return shown;
}

void ScriptDetailsTest::nothingIsParsedTwice()
{
    setText("def f():\n    pass\n");
    QCOMPARE(details().parseCount(), 1);
    QCOMPARE(int(details().python()->outlineItems().size()), 1);
    edit()->moveCursor(QTextCursor::End);
    QCOMPARE(details().parseCount(), 1);
    QVERIFY(details().isCurrent());
}

void ScriptDetailsTest::everyChangeIsParsed()
{
    setText("import os  # TODO: x\n");
    int parses = details().parseCount();
    setText("import re  # TODO: x\n");
    QVERIFY(!m_view->findChild<ScriptDetails *>()->isCurrent());
    QCOMPARE(details().parseCount(), ++parses);
    QCOMPARE(edit()->infos().all().size(), size_t(1));
    edit()->insertPlainText("x");
    QCOMPARE(details().parseCount(), ++parses);
    edit()->undo();
    QCOMPARE(details().parseCount(), ++parses);
    preferences().melDisplayErrors = !preferences().melDisplayErrors;
    QCOMPARE(details().parseCount(), parses);
    preferences().pythonDisplayErrors = !preferences().pythonDisplayErrors;
    QCOMPARE(details().parseCount(), ++parses);
    QVERIFY(edit()->infos().all().empty());
    QVERIFY(m_view->write(m_folder->file("named.py"), false));
    QCOMPARE(details().parseCount(), ++parses);
    QCOMPARE(details().python()->file().fileName(), QString("named.py"));
}

void ScriptDetailsTest::theLanguageDecidesTheParser()
{
    setText("proc f() {}  // TODO: x\n");
    QVERIFY(details().python() && !details().mel());
    QVERIFY(m_view->write(m_folder->file("a.mel"), false));
    QVERIFY(details().mel() && !details().python());
    QCOMPARE(int(details().mel()->outlineItems().size()), 1);
    QCOMPARE(edit()->infos().all().size(), size_t(1));
    QVERIFY(m_view->write(m_folder->file("a.txt"), false));
    QVERIFY(!details().mel() && !details().python());
    QVERIFY(edit()->infos().all().empty());
}

void ScriptDetailsTest::withoutAnInterpreterTheParserIsBelieved()
{
    setPythonSyntaxCheck(nullptr);
    setText(unclosed);
    QCOMPARE(details().python()->errors().count(), 1);
    QCOMPARE(int(errors().size()), 1);
    setPythonSyntaxCheck(startTestCheck);
    edit()->insertPlainText("\n");
    details();
    lastCheck->give(-1, ""); // it could not be asked after all
    QCOMPARE(int(errors().size()), 1);
}

void ScriptDetailsTest::errorsOfValidTextAreNotShown()
{
    answersValidAtOnce = true;
    setText("x = 1 + \\\n    2  # TODO: x\n");
    QVERIFY(details().python()->errors().count() > 0);
    QCOMPARE(errors(), QStringList());
    QCOMPARE(edit()->infos().all().size(), size_t(1));
}

void ScriptDetailsTest::theInterpreterComesFirst()
{
    setText(unclosed);
    const DiagnosticList &own = details().python()->errors();
    lastCheck->give(1, "never closed");
    QCOMPARE(errors().value(0), QString("1: never closed"));
    QCOMPARE(int(errors().size()), 1 + own.count());
    QVERIFY(errors().value(1).endsWith(own.messages.first()));
}

void ScriptDetailsTest::messagesStandOnCode_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("code");
    QTest::newRow("indented") << "  x = (\t\n" << 1 << "x = (";
    QTest::newRow("behind-the-end") << " x = (\ny = (  \n\n" << 4 << "y = (";
    QTest::newRow("empty-line") << " x = (\n\n\n" << 2 << "x = (";
    QTest::newRow("far-behind") << " x = (" << 99 << "x = (";
    QTest::newRow("no-code-above") << "\n\n x = (" << 1 << "";
}

void ScriptDetailsTest::messagesStandOnCode()
{
    QFETCH(QString, text);
    QFETCH(int, line);
    edit()->setText(QLatin1String("x = (\nimport a\n"));
    details();
    lastCheck->give(1, "x"); // from now on it is asked whatever the parser says
    edit()->setText(text);
    details();
    lastCheck->give(line, "x");
    const EdDiagnosticMark &mark = edit()->errors().all().front();
    QTEST(text.mid(mark.start, mark.end - mark.start), "code");
}

void ScriptDetailsTest::shownErrorsStayUntilTheAnswer()
{
    setText(unclosed);
    details();
    QCOMPARE(errors(), QStringList());
    lastCheck->give(1, "never closed");
    const QStringList shown = errors();
    edit()->insertPlainText("# TODO: one more line\n");
    details();
    QCOMPARE(errors().value(0), QString("2: never closed"));
    QCOMPARE(errors().size(), shown.size());
    QCOMPARE(edit()->infos().all().size(), size_t(1));
    lastCheck->give(0, "");
    QCOMPARE(errors(), QStringList());
}

void ScriptDetailsTest::anAnswerOnAnOldTextIsDropped()
{
    setText(unclosed);
    details();
    QPointer<TestCheck> first = lastCheck;
    edit()->insertPlainText(")");
    first->give(1, "typed before the answer came");
    QCOMPARE(errors(), QStringList());

    edit()->insertPlainText("(");
    details();
    QPointer<TestCheck> second = lastCheck;
    edit()->insertPlainText("(");
    details();
    second->give(1, "parsed again before the answer came");
    QCOMPARE(errors(), QStringList());
    lastCheck->give(2, "the answer");
    QCOMPARE(errors().value(0), QString("2: the answer"));
}

void ScriptDetailsTest::theInterpreterIsAskedOnlyAboutErrors()
{
    setText("x = 1\n");
    details();
    QCOMPARE(checkCount, 0);
    setText(unclosed);
    details();
    QCOMPARE(checkCount, 1);
    lastCheck->give(1, "never closed");
    details();
    QCOMPARE(checkCount, 1);

    // The scan finds nothing in this one, but Python may.
    setText("x = = 1\n");
    details();
    QCOMPARE(checkCount, 2);
    lastCheck->give(1, "invalid syntax");
    QCOMPARE(errors(), QStringList() << "1: invalid syntax");
    setText("x = 1\n");
    details();
    lastCheck->give(0, "");
    QCOMPARE(errors(), QStringList());
    edit()->insertPlainText("y = 2\n");
    details();
    QCOMPARE(checkCount, 3);

    setText(unclosed);
    preferences().pythonDisplayErrors = false;
    details();
    QCOMPARE(checkCount, 3);
}

void ScriptDetailsTest::aViewMayGoBeforeItsAnswer()
{
    setText(unclosed);
    details();
    QVERIFY(lastCheck);
    m_view.reset();
    QVERIFY(!lastCheck);
}

CORVANE_TEST_MAIN(ScriptDetailsTest)
#include "tst_scriptdetails.moc"
