// SPDX-License-Identifier: MIT
#include "plugin/kestrowlcmd.h"

#include "bridge/mayaversions.h"
#include "bridge/melcatalogue.h"
#include "bridge/melnametable.h"
#include "bridge/pythonanalysis.h"
#include "bridge/pythonsyntaxcheck.h"
#include "mainwindow/kestrowl.h"
#include "plugin/commandoutput.h"
#include "plugin/editorinstance.h"
#include "plugin/exceptionguard.h"
#include "preferences/preferences.h"

#include <maya/MArgDatabase.h>
#include <maya/MCommandMessage.h>
#include <maya/MGlobal.h>
#include <maya/MMessage.h>
#include <maya/MQtUtil.h>
#include <maya/MString.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QStringList>

namespace {

const char writeSettingsFlag[] = "-ws";

// False also for arguments that cannot be parsed: a misspelt flag opens the window.
bool asksToWriteSettings(const MSyntax &syntax, const MArgList &arguments)
{
    MStatus status;
    const MArgDatabase parsed(syntax, arguments, &status);
    return status == MStatus::kSuccess && parsed.isFlagSet(writeSettingsFlag);
}

// Empty when Maya does not answer.
QString directoryFromMaya(const char *query)
{
    return MQtUtil::toQString(MGlobal::executeCommandStringResult(MString(query)));
}

void createWindow()
{
    // Maya's own icons are then "maya:NAME" wherever an icon is named.
    const QString icons = editorInstance().mayaInterface->iconDirectory();
    QDir::setSearchPaths(QLatin1String("maya"), QStringList() << icons);
    const QString scripts = directoryFromMaya("internalVar -userScriptDir");
    const QString prefs = directoryFromMaya("internalVar -userPrefDir");
    editorInstance().window = new Kestrowl(scripts, prefs, MQtUtil::mainWindow());
}

// The settings are saved while everything is alive: Maya need not unload plug-ins when it quits.
// Protected, so that scripts which kill all jobs leave this one alone. A failure is no obstacle.
void installQuitJob()
{
    const MString mel = MString("scriptJob -event \"quitApplication\" \"") +
                        KestrowlCmd::commandName + " -ws\" -protected";
    int job = 0;
    if (MGlobal::executeCommand(mel, job, false, false) == MStatus::kSuccess)
        editorInstance().quitJobNumber = job;
}

// The window reaches Maya by signals only, and so can be tested without it.
void connectInterface()
{
    EditorInstance &editor = editorInstance();
    MayaInterface *mayaInterface = editor.mayaInterface.get();
    QObject::connect(editor.window, SIGNAL(scriptToShelfRequested(QString, QString, bool)),
                     mayaInterface, SLOT(scriptToShelf(QString, QString, bool)));
    QObject::connect(editor.window, SIGNAL(commandHelpRequested(QString, bool)), mayaInterface,
                     SLOT(commandHelp(QString, bool)));
    QObject::connect(editor.window, SIGNAL(showHelpRequested(QString)), mayaInterface,
                     SLOT(showHelp(QString)));
    QObject::connect(editor.window, SIGNAL(scriptEditorOverrideChanged(bool)), mayaInterface,
                     SLOT(overrideScriptEditorButton(bool)));
}

// Line numbers and stack traces are switched on once, at the first use; later Maya's own states
// count. The state of the stack window is the editor's, and Maya is told each time.
void applyInitialStates()
{
    EditorInstance &editor = editorInstance();
    if (!preferences().defaultStateInitialized) {
        editor.window->lineNumbersInErrors(true);
        editor.window->showStackTrace(true);
        preferences().defaultStateInitialized = true;
    }
    editor.window->suppressStackWindow(preferences().suppressStackWindow);
    editor.handler->applyEchoOptionVariable();
}

void createEditor()
{
    // Before the window: from the first document on names are asked for.
    loadMelCatalogue();
    setMelNamesUpdate(addNewMelNames);
    setCommandHelpSource(melCommandHelp);
    setHostVersionsSource(mayaVersions);
    if (loadPythonAnalysis()) {
        setPythonSyntaxCheck(PythonSyntaxCheck::start);
        setPythonNameSource(pythonAnswer);
    }
    editorInstance().mayaInterface = std::make_unique<MayaInterface>();
    createWindow();
    // The window has read the settings.
    if (preferences().pythonImportPyMelOnLoad)
        MGlobal::executePythonCommand("import pymel.core");
    installQuitJob();
    editorInstance().handler = std::make_unique<MayaHandler>(editorInstance().window);
    editorInstance().handler->importForcedModules();
    connectInterface();
    applyInitialStates();
}

void installOutputCallback()
{
    MCallbackIdArray &ids = editorInstance().outputCallbackIds;
    if (ids.length() == 0)
        ids.append(MCommandMessage::addCommandOutputCallback(commandOutputCallback));
}

// Deliberate: a visible window is raised as it is; showNormal() would undo a maximised one.
void showWindow()
{
    EditorInstance &editor = editorInstance();
    if (!editor.window)
        return;
    editor.handler->mirrorOptionVariables();
    if (editor.window->isMinimized() || editor.window->isHidden()) {
        editor.window->showNormal();
    } else {
        editor.window->raise();
        editor.window->activateWindow();
    }
}

// To Maya, which shows and keeps it where the user looks when the editor is about to go.
void writeSettings()
{
    if (!editorInstance().window)
        return;
    const QString failure = editorInstance().window->writeSettings();
    if (!failure.isEmpty())
        MGlobal::displayWarning(MQtUtil::toMString(failure));
}

// Forced, since the job is protected; on idle, since Maya may be running its jobs just now.
void killQuitJob()
{
    int &job = editorInstance().quitJobNumber;
    if (job != 0)
        MGlobal::executeCommandOnIdle(MString("scriptJob -f -k ") +
                                      MQtUtil::toMString(QString::number(job)));
    job = 0;
}

} // namespace

const char *const KestrowlCmd::commandName = "corvaneEditor";

void *KestrowlCmd::creator()
{
    return new KestrowlCmd;
}

MSyntax KestrowlCmd::newSyntax()
{
    MSyntax syntax;
    syntax.addFlag(writeSettingsFlag, "-writeSettings");
    return syntax;
}

MStatus KestrowlCmd::doIt(const MArgList &arguments)
{
    return guarded(MStatus(MStatus::kSuccess), [this, &arguments] {
        if (!asksToWriteSettings(syntax(), arguments))
            showWindow();
        else
            writeSettings();
        return MStatus(MStatus::kSuccess);
    });
}

void KestrowlCmd::startup()
{
    if (!editorInstance().window)
        createEditor();
    installOutputCallback();
    editorInstance().mayaInterface->createMenuItem();
    // The window asked for it when it read its settings, but nobody was listening yet.
    editorInstance().mayaInterface->overrideScriptEditorButton(preferences().overrideScriptEditor);
    editorInstance().window->appendOutputText(editorInstance().mayaInterface->currentTrace());
}

// The order matters: settings while the window is whole, Maya's interface while there is somebody
// to change it, the callback before the window that it writes to, the window last.
void KestrowlCmd::cleanup()
{
    EditorInstance &editor = editorInstance();
    writeSettings();
    if (editor.mayaInterface) {
        editor.mayaInterface->removeMenuItem();
        editor.mayaInterface->restoreScriptEditorButton();
    }
    killQuitJob();
    MMessage::removeCallbacks(editor.outputCallbackIds);
    editor.outputCallbackIds.clear();
    editor.handler.reset();
    editor.mayaInterface.reset();
    // Data that the editor put there belongs to code that is about to disappear.
    QApplication::clipboard()->clear(QClipboard::Clipboard);
    if (editor.window) {
        editor.window->close();
        delete editor.window;
    }
    setPythonSyntaxCheck(nullptr);
    setPythonNameSource(nullptr);
    setCommandHelpSource(nullptr);
    setMelNamesUpdate(nullptr);
    setHostVersionsSource(nullptr);
}
