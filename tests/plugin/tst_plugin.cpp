// SPDX-License-Identifier: MIT
// The plug-in as Maya loads it, in a session with all its windows.
#include "standin/host/pluginloader.h"
#include "standin/host/scriptjobs.h"
#include "standin/ui/mainwindow.h"
#include "tests/plugin/pluginfixture.h"
#include "tests/support/testmain.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QSettings>
#include <QTabBar>

namespace {

QStringList answerFiles(const QString &folder)
{
    return QDir(folder).entryList(QStringList() << QLatin1String("corvane-check-*"));
}

} // namespace

class PluginTest : public PluginFixture
{
    Q_OBJECT

private slots:
    void init() { startSession(); }
    void cleanup() { endSession(); }
    void loadingBuildsTheHiddenEditor();
    void theCommandShowsAndRaises();
    void malformedArgumentsStillOpenTheWindow();
    void writingSettingsLeavesTheWindowHidden();
    void settingsThatCannotBeWrittenAreSaid();
    void outputReachesTheWindow();
    void firstRunStatesAreSentOnce();
    void theMenuItemOpensTheEditor();
    void thePreferenceGivesAndTakesTheScriptEditorButton();
    void theQuitJobIsProtected();
    void whatTheQuitJobWroteComesBack();
    void unloadingLeavesNothingBehind();
    void unloadingDoesNotWaitForPython();
    void batchSessionsGetNothing();
    void loadingAHundredTimesLeavesNothingBehind();

private:
    QString footholds();
    QTabBar *tabBar();
    QStringList openTexts();
};

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
    QMetaObject::invokeMethod(outputView(), "flush");
    const QString text = outputView()->toPlainText();
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

// What is seen of the editor in Maya: the command line's buttons, its own menu items, the jobs.
QString PluginTest::footholds()
{
    return mel("string $f = \"\"; for ($b in `lsUI -type symbolButton`)"
               "$f += `symbolButton -q -c $b` + \"/\" + `symbolButton -q -ann $b` + \" \";"
               "for ($i in `lsUI -long -menuItems`)"
               "if (`menuItem -q -l $i` == \"Corvane Editor\") $f += \"item \";"
               "$f + stringArrayToString(`scriptJob -listJobs`, \"\");");
}

void PluginTest::thePreferenceGivesAndTakesTheScriptEditorButton()
{
    QVERIFY(load());
    mel("corvaneEditor");
    for (const char *command : {"ScriptEditor/", "corvaneEditor/", "ScriptEditor/"}) {
        QVERIFY(QMetaObject::invokeMethod(editorWindow(), "showPreferencesDialog"));
        for (QAbstractButton *button : editorWindow()->findChildren<QAbstractButton *>()) {
            if (button->text() == QLatin1String("Open in &place of Maya's Script Editor"))
                button->click();
        }
        QDialog *dialog = widgetsOf<QDialog>("PreferencesDialog").value(0);
        QVERIFY(dialog);
        dialog->accept();
        QVERIFY2(footholds().startsWith(QLatin1String(command)), qPrintable(footholds()));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void PluginTest::theQuitJobIsProtected()
{
    QVERIFY(load());
    mel("scriptJob -killAll");
    QVERIFY(mel("scriptJob -listJobs").contains(QLatin1String("corvaneEditor -ws")));
}

// The pane that has the tabs.
QTabBar *PluginTest::tabBar()
{
    const QList<QTabBar *> bars = widgetsOf<QTabBar>("EdCodeTabBar");
    return bars.first()->count() > 0 ? bars.first() : bars.last();
}

// The current document's caret; then what every tab holds, in their order.
QStringList PluginTest::openTexts()
{
    QStringList texts(QString::number(activeEditor()->textCursor().position()));
    const int current = tabBar()->currentIndex();
    for (int i = 0; i < tabBar()->count(); ++i) {
        tabBar()->setCurrentIndex(i);
        texts << tabBar()->tabText(i) << activeEditor()->toPlainText();
    }
    tabBar()->setCurrentIndex(current);
    return texts;
}

// Maya need not unload plug-ins when it quits. Here that has to be, but what it writes is put away.
void PluginTest::whatTheQuitJobWroteComesBack()
{
    QVERIFY(load());
    mel("corvaneEditor");
    QWidget *editor = editorWindow();
    editor->setGeometry(40, 50, 720, 540);
    for (const char *name : {"a.mel", "b.py"})
        QMetaObject::invokeMethod(editor, "open",
                                  Q_ARG(QString, m_folder->write(name, QByteArray(name) + "\nx")));
    QMetaObject::invokeMethod(editor, "newMelBuffer");
    activeEditor()->insertPlainText(QString::fromUtf8("\xc3\xa4 only here"));
    tabBar()->setCurrentIndex(1);
    activeEditor()->moveCursor(QTextCursor::End);
    editor->findChild<QAction *>(QLatin1String("actionWordWrap"))->trigger();
    const QStringList texts = openTexts();
    QCOMPARE(int(texts.size()), 7);
    m_session->scriptJobs().runNow("quitApplication");

    const QString prefs = m_folder->file("prefs");
    QVERIFY(QDir().rename(prefs, m_folder->file("kept")));
    endSession();
    QDir().rename(prefs, m_folder->file("written-by-unloading"));
    QVERIFY(QDir().rename(m_folder->file("kept"), prefs));
    restartSession();
    QVERIFY(load());
    mel("corvaneEditor");
    QCOMPARE(openTexts(), texts);
    QVERIFY(editorWindow()->findChild<QAction *>(QLatin1String("actionWordWrap"))->isChecked());
    QCOMPARE(editorWindow()->geometry(), QRect(40, 50, 720, 540));
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
    QWidget *central = widgetsOf<QWidget>("EdCentralWidget").first();
    QVERIFY(QMetaObject::invokeMethod(central, "newPythonBuffer"));
    QPlainTextEdit *edit = activeEditor();
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
    const QString before = footholds();
    QVERIFY2(before.startsWith(QLatin1String("ScriptEditor/Script Editor ")), qPrintable(before));
    const QString settings = mel("internalVar -userPrefDir") + QLatin1String("corvaneEditor.ini");
    for (int i = 0; i < 100; ++i) {
        const bool takesButton = i % 2 == 0;
        QSettings(settings, QSettings::IniFormat)
            .setValue(QLatin1String("preferences/overrideScriptEditor"), takesButton);
        QVERIFY(load());
        QCOMPARE(footholds().section(QLatin1Char(':'), 0, 0).section(QLatin1Char(' '), 0, -2),
                 QString::fromLatin1(takesButton ? "corvaneEditor/Corvane Editor item"
                                                 : "ScriptEditor/Script Editor item"));
        mel("corvaneEditor");
        QCoreApplication::processEvents();
        m_session->executeMel("print(\"line\\n\")", true);
        editorWindow()->close();
        unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        QCOMPARE(footholds(), before);
    }
    QCOMPARE(m_log->take().filter(QLatin1String("error")), QStringList());
}

CORVANE_TEST_MAIN(PluginTest)
#include "tst_plugin.moc"
