// SPDX-License-Identifier: MIT
#include "bridge/mayainterface.h"

#include "bridge/melcatalogue.h"
#include "bridge/meltext.h"

#include <maya/MCommonSystemUtils.h>
#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>
#include <maya/MString.h>

namespace {

const char applicationName[] = "Corvane Editor";

// The procedures below are not global, so they leave no name behind in Maya.

// Fills Maya's lazily built menus first, so that the submenu has its items and ours comes last. The
// submenu is found by the label that Maya's own resources give it, in whatever language it runs.
const char createMenuItemMel[] = "proc string cvCreateScriptEditorMenu() { "
                                 "global string $gMainWindowMenu;"
                                 "buildViewMenu($gMainWindowMenu);"
                                 "string $menus[] = `menu -q -ia $gMainWindowMenu`;"
                                 "for ($menu in $menus) { "
                                 "string $label = `menu -q -l $menu`;"
                                 "if ($label == `uiRes(\"m_WindowMenu.kGeneralEditorsLabel\")`) {"
                                 "buildObjectEdMenu($menu);"
                                 "menuItem -p $menu -divider true;"
                                 "$menuItem = `menuItem -p $menu -l \"%1\" -c corvaneEditor`;"
                                 "return $menuItem; } }"
                                 "return \"\"; }"
                                 "cvCreateScriptEditorMenu();";

// The button has no name to rely on: it is the one whose command opens the Script Editor.
const char scriptEditorButtonMel[] =
    "proc string cvGetScriptEditorButton() { $sym = `lsUI -type symbolButton`;"
    "for ($s in $sym) { string $cmd = `symbolButton -q -c $s`; if ($cmd == \"ScriptEditor\") "
    "return $s; }"
    "return \"\"; }"
    "cvGetScriptEditorButton()";

// A new reporter shows the whole history of the session; its window is never shown.
const char currentTraceMel[] = "proc string cvCurrentTrace() { "
                               "if (`window -exists cvTempReporterWnd`) deleteUI cvTempReporterWnd;"
                               "window cvTempReporterWnd;"
                               "$lay = `columnLayout`;"
                               "$reporter = `cmdScrollFieldReporter -fst \"\"`;"
                               "$text = `cmdScrollFieldReporter -q -t $reporter`;"
                               "deleteUI cvTempReporterWnd;"
                               "return $text; }"
                               "cvCurrentTrace();";

// Not displayed, so that it stays out of the history, and not undoable: undo belongs to the user's
// scene. False when it fails.
bool runMel(const QString &text)
{
    return MGlobal::executeCommand(MQtUtil::toMString(text), false, false) == MStatus::kSuccess;
}

// The same for MEL that answers with a string, which is empty when it fails.
bool askMel(const QString &text, QString &answer)
{
    MString result;
    const bool ok = MGlobal::executeCommand(MQtUtil::toMString(text), result, false, false) ==
                    MStatus::kSuccess;
    answer = ok ? MQtUtil::toQString(result) : QString();
    return ok;
}

void showError(const QString &text)
{
    MGlobal::displayError(MQtUtil::toMString(text));
}

// `text` has "%1" once, where the name goes.
QString withApplicationName(const char *text)
{
    return QString::fromLatin1(text).arg(QLatin1String(applicationName));
}

} // namespace

MayaInterface::MayaInterface(QObject *parent) : QObject(parent) {}

void MayaInterface::createMenuItem()
{
    if (!askMel(withApplicationName(createMenuItemMel), m_menuItemPath))
        showError(withApplicationName("Failed to create '%1' menu item"));
}

void MayaInterface::removeMenuItem()
{
    if (m_menuItemPath.isEmpty())
        return;
    if (!runMel(QLatin1String("deleteUI -mi ") + m_menuItemPath + QLatin1String(";")))
        showError(withApplicationName("Failed to remove '%1' menu item"));
    // Forgotten in any case: another attempt would fail like this one.
    m_menuItemPath.clear();
}

void MayaInterface::overrideScriptEditorButton(bool enable)
{
    if (!enable)
        restoreScriptEditorButton();
    else if (m_scriptEditorButton.isEmpty())
        takeScriptEditorButton();
}

void MayaInterface::takeScriptEditorButton()
{
    askMel(QLatin1String(scriptEditorButtonMel), m_scriptEditorButton);
    if (m_scriptEditorButton.isEmpty()) {
        showError(QLatin1String("Failed to identify Script Editor button"));
        return;
    }
    // The name stays kept whatever follows: a button that was changed by half can be given back.
    if (!runMel(QLatin1String("symbolButton -e -c corvaneEditor ") + m_scriptEditorButton))
        showError(QLatin1String("Failed to override Script Editor button command"));
    else if (!runMel(withApplicationName("symbolButton -e -ann \"%1\" ") + m_scriptEditorButton))
        showError(QLatin1String("Failed to override Script Editor button annotation"));
}

void MayaInterface::restoreScriptEditorButton()
{
    if (m_scriptEditorButton.isEmpty())
        return;
    if (!runMel(QLatin1String("symbolButton -e -c ScriptEditor ") + m_scriptEditorButton))
        showError(QLatin1String("Failed to restore Script Editor button command"));
    else if (!runMel(QLatin1String("symbolButton -e -ann "
                                   "(uiRes(\"m_initCommandLine.kScriptEditorAnnot\")) ") +
                     m_scriptEditorButton))
        showError(QLatin1String("Failed to restore Script Editor button annotation"));
    m_scriptEditorButton.clear();
}

// The label is quoted like the script: users type it.
void MayaInterface::scriptToShelf(const QString &label, const QString &script, bool isMel)
{
    const QString call = QLatin1String("scriptToShelf(") + quotedForMel(label) +
                         QLatin1String(", ") + quotedForMel(script) +
                         QLatin1String(isMel ? ", 1)" : ", 0)");
    MGlobal::executeCommandOnIdle(MQtUtil::toMString(call), false);
}

// Runtime commands and procedures have no page. A name that passes is one word, safe to be put into
// the path as it is.
void MayaInterface::commandHelp(const QString &command, bool python)
{
    QString page = QLatin1String("index.html");
    if (!command.isEmpty()) {
        if (!isMelCommand(command)) {
            showError(QLatin1String("Command not found: ") + command);
            return;
        }
        page = command + QLatin1String(".html");
    }
    runMel(
        QLatin1String(python ? "showHelp -docs \"CommandsPython/" : "showHelp -docs \"Commands/") +
        page + QLatin1String("\""));
}

void MayaInterface::showHelp(const QString &argument)
{
    runMel(QLatin1String("showHelp ") + argument);
}

QString MayaInterface::currentTrace() const
{
    QString text;
    askMel(QLatin1String(currentTraceMel), text);
    return text;
}

QString MayaInterface::iconDirectory() const
{
    MStatus status;
    const MString location = MCommonSystemUtils::getEnv(MString("MAYA_LOCATION"), &status);
    // A missing variable can leave the status successful and the value empty.
    if (status != MStatus::kSuccess || location.length() == 0)
        showError(QLatin1String("Failed to get icon path"));
    QString directory = MQtUtil::toQString(location);
    if (!directory.endsWith(QLatin1Char('/')))
        directory += QLatin1Char('/');
    return directory + QLatin1String("icons/");
}
