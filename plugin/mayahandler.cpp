// SPDX-License-Identifier: MIT
#include "plugin/mayahandler.h"

#include "analysis/wordunits.h"
#include "bridge/forcedimports.h"
#include "bridge/outputsuppression.h"
#include "mainwindow/kestrowl.h"
#include "plugin/exceptionguard.h"
#include "plugin/mayatoggle.h"

#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>
#include <maya/MString.h>

#include <optional>

namespace {

// "$name" and nothing else, not even a blank or a semicolon.
bool isVariableName(const QString &code)
{
    if (code.size() < 2 || code.at(0) != QLatin1Char('$'))
        return false;
    for (int i = 1; i < code.size(); ++i) {
        if (!isNameUnit(code.at(i).unicode()))
            return false;
    }
    return true;
}

void setToggle(const MayaToggle &toggle, bool enable)
{
    const QString mel = QLatin1String(toggle.mel) + QString::number(enable ? 1 : 0);
    MGlobal::executeCommandOnIdle(MQtUtil::toMString(mel), false);
    if (toggle.optionVariable)
        MGlobal::setOptionVarValue(MString(toggle.optionVariable), enable ? 1 : 0);
}

// Nothing when it was never stored; `toggle` has an option variable.
std::optional<bool> storedState(const MayaToggle &toggle)
{
    bool exists = false;
    const int value = MGlobal::optionVarIntValue(MString(toggle.optionVariable), &exists);
    return exists ? std::optional<bool>(value != 0) : std::nullopt;
}

} // namespace

MayaHandler::MayaHandler(Kestrowl *window) : m_window(window)
{
    connect(window, SIGNAL(melExecuted(QString)), SLOT(executeMel(QString)));
    connect(window, SIGNAL(pythonExecuted(QString)), SLOT(executePython(QString)));
    connect(window, SIGNAL(sourceScriptSelected(QString)), SLOT(sourceScript(QString)));
    connect(window, SIGNAL(echoAllCommandsEnabled(bool)), SLOT(echoAllCommands(bool)));
    connect(window, SIGNAL(lineNumbersInErrorsEnabled(bool)), SLOT(lineNumbersInErrors(bool)));
    connect(window, SIGNAL(showStackTraceEnabled(bool)), SLOT(showStackTrace(bool)));
    connect(window, SIGNAL(suppressStackWindowEnabled(bool)), SLOT(suppressStackWindow(bool)));
    connect(window, SIGNAL(preferencesApplied()), SLOT(importForcedModules()));
}

// Displayed, so that the history shows what was run; the print that is made of a name is not.
void MayaHandler::executeMel(const QString &code)
{
    const bool printsVariable = isVariableName(code);
    const QString text =
        printsVariable ? QLatin1String("print(") + code + QLatin1String("); print(\"\\n\")") : code;
    MGlobal::executeCommandOnIdle(MQtUtil::toMString(text), !printsVariable);
}

void MayaHandler::executePython(const QString &code)
{
    MGlobal::executePythonCommandOnIdle(MQtUtil::toMString(code), true);
}

// The file runs inside the slot, so an exception must not get into Qt's event loop.
void MayaHandler::sourceScript(const QString &path)
{
    guarded(false, [&path] {
        MGlobal::sourceFile(MQtUtil::toMString(path));
        return true;
    });
}

void MayaHandler::echoAllCommands(bool enable)
{
    setToggle(echoAllCommandsToggle, enable);
}

void MayaHandler::lineNumbersInErrors(bool enable)
{
    setToggle(lineNumbersToggle, enable);
}

void MayaHandler::showStackTrace(bool enable)
{
    setToggle(stackTraceToggle, enable);
}

void MayaHandler::suppressStackWindow(bool enable)
{
    setToggle(suppressStackWindowToggle, enable);
}

void MayaHandler::importForcedModules()
{
    guarded(false, [] {
        ::importForcedModules();
        return true;
    });
}

void MayaHandler::runPython(const QString &code, bool display)
{
    guarded(false, [&code, display] {
        const OutputSuppression silence(!display);
        MGlobal::executePythonCommand(MQtUtil::toMString(code), display, false);
        return true;
    });
}

void MayaHandler::mirrorOptionVariables()
{
    if (const auto echo = storedState(echoAllCommandsToggle))
        m_window->echoAllCommands(*echo, true);
    if (const auto lineNumbers = storedState(lineNumbersToggle))
        m_window->lineNumbersInErrors(*lineNumbers, true);
    if (const auto stackTrace = storedState(stackTraceToggle))
        m_window->showStackTrace(*stackTrace, true);
}

void MayaHandler::applyEchoOptionVariable()
{
    if (const auto echo = storedState(echoAllCommandsToggle))
        echoAllCommands(*echo);
}
