// SPDX-License-Identifier: MIT
// The plug-in as Maya loads it, in a session with all its windows.
#include "standin/host/idlequeue.h"
#include "standin/host/pluginloader.h"
#include "standin/python/python.h"
#include "standin/ui/mainwindow.h"
#include "standin/ui/userinterface.h"
#include "tests/support/scratchdir.h"
#include "tests/support/sessionlog.h"
#include "tests/support/testmain.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>

#include <memory>

namespace {

const QString pluginFile = QString::fromUtf8(PLUGIN_FILE);

QWidget *editorWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("Kestrowl"))
            return widget;
    }
    return nullptr;
}

template <typename Widget>
Widget *childOfClass(QWidget *editor, const char *name)
{
    for (Widget *child : editor->findChildren<Widget *>()) {
        if (child->inherits(name))
            return child;
    }
    return nullptr;
}

QPlainTextEdit *outputView(QWidget *editor)
{
    return childOfClass<QPlainTextEdit>(editor, "EdOutputView");
}

QStringList answerFiles(const QString &folder)
{
    return QDir(folder).entryList(QStringList() << QLatin1String("corvane-check-*"));
}

} // namespace

class PluginTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void loadingBuildsTheHiddenEditor();
    void theCommandShowsAndRaises();
    void malformedArgumentsStillOpenTheWindow();
    void writingSettingsLeavesTheWindowHidden();
    void settingsThatCannotBeWrittenAreSaid();
    void outputReachesTheWindow();
    void firstRunStatesAreSentOnce();
    void theMenuItemOpensTheEditor();
    void theScriptEditorButtonIsTakenAndGivenBack();
    void theQuitJobIsProtectedAndWritesSettings();
    void unloadingLeavesNothingBehind();
    void unloadingDoesNotWaitForPython();
    void batchSessionsGetNothing();
    void loadingAHundredTimesLeavesNothingBehind();

private:
    void startSession(bool batch);
    QString mel(const char *text);
    bool load() { return m_session->plugins().load(pluginFile); }
    void unload();
    void runIdle() { QVERIFY(m_session->idleQueue().processUntilEmpty()); }

    std::unique_ptr<standin::Session> m_session;
    std::unique_ptr<SessionLog> m_log;
    std::unique_ptr<standin::UserInterface> m_ui;
};

void PluginTest::startSession(bool batch)
{
    cleanup();
    qputenv("MAYA_LOCATION", "/opt/maya"); // as the host's own start does
    standin::SessionOptions options;
    options.batch = batch;
    options.userDirectory =
        QDir::tempPath() +
        QString::fromLatin1("/corvane-plugin-%1").arg(QCoreApplication::applicationPid());
    QFile::remove(options.userDirectory + QLatin1String("/prefs/corvaneEditor.ini"));
    m_session = std::make_unique<standin::Session>(options);
    m_session->setPython(standin::createPythonEngine(*m_session, m_session->mel()));
    m_log = std::make_unique<SessionLog>(*m_session);
    if (!batch)
        m_ui = std::make_unique<standin::UserInterface>(*m_session);
}

void PluginTest::init()
{
    startSession(false);
}

void PluginTest::cleanup()
{
    if (m_session)
        m_session->plugins().unloadAll();
    m_ui.reset();
    m_log.reset();
    m_session.reset();
    QCOMPARE(editorWindow(), static_cast<QWidget *>(nullptr));
}

// The value of a MEL text as a script would print it.
QString PluginTest::mel(const char *text)
{
    return QString::fromUtf8(mel::printText(m_session->executeMel(text, false).value).c_str());
}

void PluginTest::unload()
{
    QVERIFY(m_session->plugins().unload(QLatin1String("corvaneEditor")));
    runIdle();
}

void PluginTest::loadingBuildsTheHiddenEditor()
{
    QVERIFY(load());
    QWidget *editor = editorWindow();
    QVERIFY(editor);
    QVERIFY(editor->isHidden());
    QCOMPARE(editor->parentWidget(), static_cast<QWidget *>(&m_ui->window()));
    QCOMPARE(mel("exists(\"corvaneEditor\")"), QString::fromLatin1("1"));
    QCOMPARE(m_log->take().filter(QLatin1String("error")), QStringList());
}

void PluginTest::theCommandShowsAndRaises()
{
    QVERIFY(load());
    mel("corvaneEditor");
    QWidget *editor = editorWindow();
    QVERIFY(editor->isVisible());
    editor->setGeometry(50, 60, 700, 500);
    mel("corvaneEditor");
    QCOMPARE(editor->geometry(), QRect(50, 60, 700, 500));
    editor->close();
    QVERIFY(editor->isHidden());
    mel("corvaneEditor");
    QVERIFY(editor->isVisible());
    editor->showMinimized();
    mel("corvaneEditor");
    QVERIFY(!editor->isMinimized());
}

void PluginTest::malformedArgumentsStillOpenTheWindow()
{
    QVERIFY(load());
    QVERIFY(m_session->executeMel("corvaneEditor -nonsense 3;", false).ok);
    QVERIFY(editorWindow()->isVisible());
}

void PluginTest::writingSettingsLeavesTheWindowHidden()
{
    QVERIFY(load());
    const QString file = mel("internalVar -userPrefDir") + QLatin1String("corvaneEditor.ini");
    QVERIFY(!QFile::exists(file));
    mel("corvaneEditor -ws");
    QVERIFY(QFile::exists(file));
    QVERIFY(editorWindow()->isHidden());
    QFile::remove(file);
    m_session->executePython("import maya.cmds; maya.cmds.corvaneEditor(writeSettings=True)",
                             false);
    QVERIFY(QFile::exists(file));
}

void PluginTest::settingsThatCannotBeWrittenAreSaid()
{
    QVERIFY(load());
    const QString file = mel("internalVar -userPrefDir") + QLatin1String("corvaneEditor.ini");
    QVERIFY(QFile::link(file, file)); // leads in a circle
    m_log->take();
    mel("corvaneEditor -ws");
    QCOMPARE(int(m_log->take().filter(QLatin1String("settings are not saved")).size()), 1);
    unload();
    QCOMPARE(int(m_log->take().filter(QLatin1String("settings are not saved")).size()), 1);
    QFile::remove(file);
}

void PluginTest::outputReachesTheWindow()
{
    mel("print(\"before\\n\")");
    QVERIFY(load());
    mel("corvaneEditor");
    m_session->executeMel("print(\"hi\\n\"); warning(\"careful\"); 1 + 2;", true);
    QWidget *editor = editorWindow();
    QMetaObject::invokeMethod(outputView(editor), "flush");
    const QString text = outputView(editor)->toPlainText();
    QVERIFY2(text.contains(QLatin1String("before\n")), qPrintable(text));
    QVERIFY2(
        text.contains(QLatin1String("\nhi\n// Warning: line 1: careful //\n// Result: 3 //\n")),
        qPrintable(text));
}

void PluginTest::firstRunStatesAreSentOnce()
{
    m_session->mel().settings().lineNumbers = false;
    QVERIFY(load());
    runIdle();
    QCOMPARE(m_session->mel().settings().lineNumbers, true);
    QCOMPARE(m_session->mel().settings().stackTrace, true);
    QCOMPARE(std::get<int>(m_session->optionVar("stackTraceIsOn")), 1);
    unload();
    m_session->mel().settings().stackTrace = false;
    QVERIFY(load());
    runIdle();
    QCOMPARE(m_session->mel().settings().stackTrace, false);
}

void PluginTest::theMenuItemOpensTheEditor()
{
    QVERIFY(load());
    const QString item = mel(
        "global string $gMainWindowMenu; string $all[] = `lsUI -long -menuItems`; string $found;"
        "for ($i in $all) if (`menuItem -q -l $i` == \"Corvane Editor\") $found = $i; $found;");
    QVERIFY2(item.startsWith(QLatin1String("MayaWindow|mainWindowMenu|")), qPrintable(item));
    QAction *action = m_ui->findMenuItem(item.toUtf8().constData());
    QVERIFY(action);
    action->trigger();
    QVERIFY(editorWindow()->isVisible());
}

void PluginTest::theScriptEditorButtonIsTakenAndGivenBack()
{
    const char *const commands =
        "string $c; $c = \"\"; for ($b in `lsUI -type symbolButton`) $c += "
        "`symbolButton -q -c $b` + \" \"; $c;";
    QVERIFY(mel(commands).contains(QLatin1String("ScriptEditor")));
    QVERIFY(load());
    QVERIFY(mel(commands).contains(QLatin1String("corvaneEditor")));
    QVERIFY(!mel(commands).contains(QLatin1String("ScriptEditor")));
    unload();
    QVERIFY(mel(commands).contains(QLatin1String("ScriptEditor")));
}

void PluginTest::theQuitJobIsProtectedAndWritesSettings()
{
    QVERIFY(load());
    mel("scriptJob -killAll");
    QVERIFY(mel("scriptJob -listJobs").contains(QLatin1String("corvaneEditor -ws")));
    const QString file = mel("internalVar -userPrefDir") + QLatin1String("corvaneEditor.ini");
    m_session->quit();
    QVERIFY(QFile::exists(file));
}

void PluginTest::unloadingLeavesNothingBehind()
{
    const QString jobs = mel("scriptJob -listJobs");
    const QString items = mel("buildViewMenu(\"mainWindowMenu\"); lsUI -long -menuItems");
    QVERIFY(load());
    mel("corvaneEditor");
    QApplication::clipboard()->setText(QLatin1String("copied in the editor"));
    m_log->take();
    unload();
    QCOMPARE(m_log->take().filter(QLatin1String("error")), QStringList());
    QCOMPARE(mel("exists(\"corvaneEditor\")"), QString::fromLatin1("0"));
    QCOMPARE(mel("scriptJob -listJobs"), jobs);
    QVERIFY(!mel("lsUI -long -menuItems").contains(QLatin1String("corvane"), Qt::CaseInsensitive));
    QCOMPARE(QApplication::clipboard()->text(), QString());
    QCOMPARE(editorWindow(), static_cast<QWidget *>(nullptr));
    mel("print(\"no callback is left\\n\")");
}

// A thread of Python's is checking the text, and goes on for a while.
void PluginTest::unloadingDoesNotWaitForPython()
{
    const ScratchDir answers;
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", answers.path().toUtf8());
    QVERIFY(load());
    mel("corvaneEditor");
    QWidget *central = childOfClass<QWidget>(editorWindow(), "EdCentralWidget");
    QVERIFY(QMetaObject::invokeMethod(central, "newPythonBuffer"));
    QPlainTextEdit *edit = childOfClass<QPlainTextEdit>(central, "EdCodeEdit");
    // Valid, but the editor's own scan takes the second line for an indent too much.
    edit->setPlainText(QString::fromLatin1("x = 1 + \\\n    2\n").repeated(50000));
    QVERIFY(QMetaObject::invokeMethod(central, "activeViewChange"));
    while (answerFiles(answers.path()).isEmpty())
        QCoreApplication::processEvents();
    m_log->take();
    unload();
    QCOMPARE(answerFiles(answers.path()), QStringList());
    const char threads[] = "__import__('threading').active_count()";
    while (std::get<int>(m_session->executePython(threads, false).value) > 1)
        QTest::qWait(1);
    QCOMPARE(m_log->take().filter(QLatin1String("error")), QStringList());
    QCOMPARE(answerFiles(answers.path()), QStringList());
    qputenv("TMPDIR", before);
}

void PluginTest::batchSessionsGetNothing()
{
    startSession(true);
    QVERIFY(load());
    QCOMPARE(mel("exists(\"corvaneEditor\")"), QString::fromLatin1("0"));
    QCOMPARE(editorWindow(), static_cast<QWidget *>(nullptr));
    QVERIFY(m_session->plugins().unload(QLatin1String("corvaneEditor")));
    QCOMPARE(m_log->take(), QStringList());
}

void PluginTest::loadingAHundredTimesLeavesNothingBehind()
{
    for (int i = 0; i < 100; ++i) {
        QVERIFY(load());
        mel("corvaneEditor");
        QCoreApplication::processEvents();
        m_session->executeMel("print(\"line\\n\")", true);
        editorWindow()->close();
        unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    QCOMPARE(m_log->take().filter(QLatin1String("error")), QStringList());
}

CORVANE_TEST_MAIN(PluginTest)
#include "tst_plugin.moc"
