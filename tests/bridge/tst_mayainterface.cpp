// SPDX-License-Identifier: MIT
#include "bridge/mayainterface.h"
#include "bridge/melcatalogue.h"
#include "standin/host/session.h"
#include "tests/support/datatable.h"
#include "tests/support/scratchdir.h"
#include "tests/support/sessionlog.h"
#include "tests/support/testmain.h"

#include <maya/MStringArray.h>

namespace {

standin::SessionOptions optionsFor(const ScratchDir &folder)
{
    standin::SessionOptions options;
    options.userDirectory = folder.path();
    return options;
}

// Keeps the MEL that it is given instead of running it, and gives prepared answers: a string as
// the value, "!" as a failure, an empty string when there is none left.
class AnsweringSession : public standin::Session
{
public:
    explicit AnsweringSession(const ScratchDir &folder) : standin::Session(optionsFor(folder)) {}

    mel::Outcome executeMel(const std::string &text, bool display) override
    {
        keep(text, display ? "displayed " : "");
        const QString answer = answers.isEmpty() ? QString() : answers.takeFirst();
        return mel::Outcome{answer != QLatin1String("!"), std::string(answer.toUtf8().constData())};
    }

    void executeMelOnIdle(const std::string &text, bool display) override
    {
        keep(text, display ? "displayed on idle " : "on idle ");
    }

    QStringList answers;
    QStringList texts; // of those that begin with a procedure only the call of it

private:
    void keep(const std::string &text, const char *how)
    {
        const QString mel = QString::fromUtf8(text.c_str());
        texts << QLatin1String(how) + mel.mid(mel.lastIndexOf(QLatin1Char('}')) + 1);
    }
};

// Each letter is a step: m and M make and remove the menu item, b and B take the button and give
// it back.
void takeSteps(MayaInterface &mayaInterface, const QString &steps)
{
    for (const QChar step : steps) {
        if (step == QLatin1Char('m'))
            mayaInterface.createMenuItem();
        else if (step == QLatin1Char('M'))
            mayaInterface.removeMenuItem();
        else
            mayaInterface.overrideScriptEditorButton(step == QLatin1Char('b'));
    }
}

QStringList split(const char *texts)
{
    return *texts ? QString::fromLatin1(texts).split(QLatin1Char('\n')) : QStringList();
}

} // namespace

class TestMayaInterface : public QObject
{
    Q_OBJECT

private slots:
    void footholdsComeAndGo_data();
    void footholdsComeAndGo();
    void pagesOpenForCompiledCommands_data();
    void pagesOpenForCompiledCommands();
    void scriptsGoToTheShelfOnIdle();
    void anUnknownTraceIsEmpty();
    void theIconFolderIsBelowMaya_data();
    void theIconFolderIsBelowMaya();
};

#define FIND "cvGetScriptEditorButton()\n"
#define TAKE FIND "symbolButton -e -c corvaneEditor btn\n"
#define NAME "symbolButton -e -ann \"Corvane Editor\" btn"
#define GIVE "symbolButton -e -c ScriptEditor btn\n"
#define RENAME "symbolButton -e -ann (uiRes(\"m_initCommandLine.kScriptEditorAnnot\")) btn"

void TestMayaInterface::footholdsComeAndGo_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("answers"); // separated by blanks
    columns<QStringList, QString>("texts", "error");

    const struct
    {
        const char *tag, *steps, *answers, *texts, *error;
    } rows[] = {
        {"item-removed-once", "mMM", "w|item", "cvCreateScriptEditorMenu();\ndeleteUI -mi w|item;",
         ""},
        {"no-submenu", "mM", "", "cvCreateScriptEditorMenu();", ""},
        {"item-fails", "mM", "!", "cvCreateScriptEditorMenu();",
         "Failed to create 'Corvane Editor' menu item"},
        {"removal-fails", "mMM", "w|item !", "cvCreateScriptEditorMenu();\ndeleteUI -mi w|item;",
         "Failed to remove 'Corvane Editor' menu item"},
        {"button-changes-hands-once", "bbBB", "btn", TAKE NAME "\n" GIVE RENAME, ""},
        {"button-was-never-taken", "B", "", "", ""},
        {"no-button", "bB", "", "cvGetScriptEditorButton()",
         "Failed to identify Script Editor button"},
        {"button-is-not-told", "bB", "!", "cvGetScriptEditorButton()",
         "Failed to identify Script Editor button"},
        {"command-fails", "bB", "btn !", TAKE GIVE RENAME,
         "Failed to override Script Editor button command"},
        {"annotation-fails", "bB", "btn  !", TAKE NAME "\n" GIVE RENAME,
         "Failed to override Script Editor button annotation"},
        {"giving-back-fails", "bBB", "btn   !", TAKE NAME "\n" GIVE,
         "Failed to restore Script Editor button command"},
        {"annotation-stays", "bBB", "btn    !", TAKE NAME "\n" GIVE RENAME,
         "Failed to restore Script Editor button annotation"},
    };
    for (const auto &given : rows)
        row(given.tag, given.steps, given.answers,
            split(QByteArray(given.texts).trimmed().constData()), given.error);
}

void TestMayaInterface::footholdsComeAndGo()
{
    QFETCH(QString, steps);
    QFETCH(QString, answers);
    QFETCH(QString, error);
    const ScratchDir folder;
    AnsweringSession session(folder);
    SessionLog log(session);
    session.answers = answers.split(QLatin1Char(' '));
    MayaInterface mayaInterface;
    takeSteps(mayaInterface, steps);
    QTEST(session.texts, "texts");
    const QStringList errors = error.isEmpty() ? QStringList() : QStringList("error " + error);
    QCOMPARE(log.take(), errors);
}

void TestMayaInterface::pagesOpenForCompiledCommands_data()
{
    columns<QString, bool, QString, QString>("command", "python", "text", "message");

    row("mel-index", "", false, "showHelp -docs \"Commands/index.html\"", "");
    row("python-page", "ls", true, "showHelp -docs \"CommandsPython/ls.html\"", "");
    row("unknown", "ls\"; evil", false, "", "error Command not found: ls\"; evil");
    row("cut-short", QString::fromLatin1("ls\0", 3), false, "",
        QString::fromLatin1("error Command not found: ls\0", 28));
}

void TestMayaInterface::pagesOpenForCompiledCommands()
{
    QFETCH(QString, command);
    QFETCH(bool, python);
    const ScratchDir folder;
    AnsweringSession session(folder);
    SessionLog log(session);
    melCommands().append("ls");
    MayaInterface().commandHelp(command, python);
    melCommands().clear();
    QTEST(session.texts.join(QString()), "text");
    QTEST(log.take().join(QString()), "message");
}

void TestMayaInterface::scriptsGoToTheShelfOnIdle()
{
    const ScratchDir folder;
    AnsweringSession session(folder);
    MayaInterface().scriptToShelf("a \"b\"", QString("x\\n") + QChar(0x2029) + "\"y\"", true);
    MayaInterface().scriptToShelf("", "1", false);
    QCOMPARE(session.texts,
             QStringList() << "on idle scriptToShelf(\"a \\\"b\\\"\", \"x\\\\n\\n\\\"y\\\"\", 1)"
                           << "on idle scriptToShelf(\"\", \"1\", 0)");
}

void TestMayaInterface::anUnknownTraceIsEmpty()
{
    const ScratchDir folder;
    AnsweringSession session(folder);
    session.answers << "// history"
                    << "!";
    QCOMPARE(MayaInterface().currentTrace(), QString("// history"));
    QCOMPARE(MayaInterface().currentTrace(), QString());
}

void TestMayaInterface::theIconFolderIsBelowMaya_data()
{
    columns<QString, QString, QStringList>("location", "folder", "messages");
    row("set", "/opt/maya", "/opt/maya/icons/", QStringList());
    row("slash", "/opt/maya/", "/opt/maya/icons/", QStringList());
    row("missing", "", "/icons/", QStringList("error Failed to get icon path"));
}

void TestMayaInterface::theIconFolderIsBelowMaya()
{
    QFETCH(QString, location);
    const ScratchDir folder;
    AnsweringSession session(folder);
    SessionLog log(session);
    qputenv("MAYA_LOCATION", location.toUtf8());
    QTEST(MayaInterface().iconDirectory(), "folder");
    QTEST(log.take(), "messages");
}

CORVANE_TEST_MAIN(TestMayaInterface)
#include "tst_mayainterface.moc"
