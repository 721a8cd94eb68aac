// SPDX-License-Identifier: MIT
#include "plugin/kestrowlcmd.h"

#include "bridge/melcatalogue.h"
#include "bridge/pythonanalysis.h"
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

bool asksToWriteSettings(const MSyntax &syntax, const MArgList &arguments)
{
    MStatus status;
    const MArgDatabase parsed(syntax, arguments, &status);
    return status == MStatus::kSuccess && parsed.isFlagSet(writeSettingsFlag);
}

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

// Protected, so that scripts which kill all jobs leave it alone.
void installQuitJob()
{
    const MString mel = MString("scriptJob -event \"quitApplication\" \"") +
                        KestrowlCmd::commandName + " -ws\" -protected";
    int job = 0;
    if (MGlobal::executeCommand(mel, job, false, false) == MStatus::kSuccess)
        editorInstance().quitJobNumber = job;
}

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
    loadMelCatalogue();
    loadPythonAnalysis();
    editorInstance().mayaInterface = std::make_unique<MayaInterface>();
    createWindow();
    if (preferences().pythonImportPyMelOnLoad)
        MGlobal::executePythonCommand("import pymel.core");
    installQuitJob();
    editorInstance().handler = std::make_unique<MayaHandler>(editorInstance().window);
    connectInterface();
    applyInitialStates();
}

void installOutputCallback()
{
    MCallbackIdArray &ids = editorInstance().outputCallbackIds;
    if (ids.length() == 0)
        ids.append(MCommandMessage::addCommandOutputCallback(commandOutputCallback));
}

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
        else if (editorInstance().window)
            editorInstance().window->writeSettings();
        return MStatus(MStatus::kSuccess);
    });
}

void KestrowlCmd::startup()
{
    if (!editorInstance().window)
        createEditor();
    installOutputCallback();
    editorInstance().mayaInterface->createMenuItem();
    editorInstance().mayaInterface->overrideScriptEditorButton(preferences().overrideScriptEditor);
    editorInstance().window->appendOutputText(editorInstance().mayaInterface->currentTrace());
}

void KestrowlCmd::cleanup()
{
    EditorInstance &editor = editorInstance();
    if (editor.window)
        editor.window->writeSettings();
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
}
