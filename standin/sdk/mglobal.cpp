// SPDX-License-Identifier: MIT
#include <maya/MGlobal.h>

#include "standin/sdk/convert.h"
#include "standin/sdk/hostaccess.h"
#include "standin/sdk/hostservices.h"
#include "standin/sdk/standinaccess.h"

#include <string>
#include <utility>

using namespace standin;

namespace {

// Every form of running a script is one of two calls of the host and one conversion.
using Execute = mel::Outcome (HostServices::*)(const std::string &, bool);

mel::Outcome run(Execute execute, const MString &text, bool display)
{
    return hostServices() ? (hostServices()->*execute)(utf8(text), display) : mel::Outcome();
}

template <class Result>
MStatus runFor(Execute execute, const MString &text, Result &result, bool display)
{
    mel::Outcome outcome = run(execute, text, display);
    // In this order, so that the result is touched only by a script that has succeeded.
    return outcome.ok && convert(std::move(outcome.value), result) ? MS::kSuccess : MS::kFailure;
}

MString runForText(Execute execute, const MString &text, bool display, MStatus *status)
{
    const mel::Outcome outcome = run(execute, text, display);
    MString result;
    // A script that succeeds without a value is a failure here: there is no text to give.
    const bool isText = outcome.ok && convertToText(outcome.value, result);
    setStatus(status, isText ? MS::kSuccess : MS::kFailure);
    return result;
}

void show(mel::MessageKind kind, const MString &text)
{
    if (hostServices())
        hostServices()->output(kind, utf8(text));
}

// A variable of another type counts as missing.
template <class Item>
Item optionVarValue(const MString &name, bool *valid)
{
    Item value = Item();
    const bool found = hostServices() && convert(hostServices()->optionVar(utf8(name)), value);
    if (valid)
        *valid = found;
    return value;
}

// True when it could be stored.
bool setVar(const MString &name, const mel::Value &value)
{
    if (hostServices())
        hostServices()->setOptionVar(utf8(name), value);
    return hostServices();
}

bool initVar(const MString &name, const mel::Value &value)
{
    // Whatever its type: a variable that exists keeps its value.
    return !MGlobal::optionVarExists(name) && setVar(name, value);
}

} // namespace

STANDIN_API_OPEN

MStatus MGlobal::executeCommand(const MString &command, bool displayEnabled, bool)
{
    return run(&HostServices::executeMel, command, displayEnabled).ok ? MS::kSuccess : MS::kFailure;
}

MStatus MGlobal::executePythonCommand(const MString &command, bool displayEnabled, bool)
{
    const bool ok = run(&HostServices::executePython, command, displayEnabled).ok;
    return ok ? MS::kSuccess : MS::kFailure;
}

MStatus MGlobal::executeCommand(const MString &command, MCommandResult &result, bool displayEnabled,
                                bool)
{
    const mel::Outcome outcome = run(&HostServices::executeMel, command, displayEnabled);
    if (outcome.ok)
        StandinAccess::value(result) = outcome.value;
    return outcome.ok ? MS::kSuccess : MS::kFailure;
}

// Nothing can be undone here, so the last parameter is left alone throughout.
// Six types in two languages, told apart by the type of the result alone; written once here.
#define STANDIN_RESULT_FORMS(Type)                                                                 \
    MStatus MGlobal::executeCommand(const MString &command, Type &result, bool displayEnabled,     \
                                    bool)                                                          \
    {                                                                                              \
        return runFor(&HostServices::executeMel, command, result, displayEnabled);                 \
    }                                                                                              \
    MStatus MGlobal::executePythonCommand(const MString &command, Type &result,                    \
                                          bool displayEnabled, bool)                               \
    {                                                                                              \
        return runFor(&HostServices::executePython, command, result, displayEnabled);              \
    }

STANDIN_RESULT_FORMS(int)
STANDIN_RESULT_FORMS(MIntArray)
STANDIN_RESULT_FORMS(double)
STANDIN_RESULT_FORMS(MDoubleArray)
STANDIN_RESULT_FORMS(MString)
STANDIN_RESULT_FORMS(MStringArray)

MString MGlobal::executeCommandStringResult(const MString &command, bool displayEnabled, bool,
                                            MStatus *ReturnStatus)
{
    return runForText(&HostServices::executeMel, command, displayEnabled, ReturnStatus);
}

MString MGlobal::executePythonCommandStringResult(const MString &command, bool displayEnabled, bool,
                                                  MStatus *ReturnStatus)
{
    return runForText(&HostServices::executePython, command, displayEnabled, ReturnStatus);
}

MStatus MGlobal::executeCommandOnIdle(const MString &command, bool displayEnabled)
{
    if (!hostServices())
        return MS::kFailure;
    hostServices()->executeMelOnIdle(utf8(command), displayEnabled);
    return MS::kSuccess;
}

MStatus MGlobal::executePythonCommandOnIdle(const MString &command, bool displayEnabled)
{
    if (!hostServices())
        return MS::kFailure;
    hostServices()->executePythonOnIdle(utf8(command), displayEnabled);
    return MS::kSuccess;
}

MStatus MGlobal::sourceFile(const MString &fileName)
{
    const bool ok = hostServices() && hostServices()->sourceFile(utf8(fileName)).ok;
    return ok ? MS::kSuccess : MS::kFailure;
}

void MGlobal::displayInfo(const MString &message)
{
    show(mel::MessageKind::Info, message);
}

void MGlobal::displayWarning(const MString &message)
{
    show(mel::MessageKind::Warning, message);
}

void MGlobal::displayError(const MString &message)
{
    show(mel::MessageKind::Error, message);
}

// A variable never has the void value, so void says that it is missing.
bool MGlobal::optionVarExists(const MString &name)
{
    return hostServices() && !mel::isVoid(hostServices()->optionVar(utf8(name)));
}

int MGlobal::optionVarIntValue(const MString &name, bool *valid)
{
    return optionVarValue<int>(name, valid);
}

double MGlobal::optionVarDoubleValue(const MString &name, bool *valid)
{
    return optionVarValue<double>(name, valid);
}

MString MGlobal::optionVarStringValue(const MString &name, bool *valid)
{
    return optionVarValue<MString>(name, valid);
}

bool MGlobal::setOptionVarValue(const MString &name, int value)
{
    return setVar(name, value);
}

bool MGlobal::setOptionVarValue(const MString &name, double value)
{
    return setVar(name, value);
}

bool MGlobal::setOptionVarValue(const MString &name, const MString &value)
{
    return setVar(name, utf8(value));
}

bool MGlobal::initOptionVar(const MString &name, int value)
{
    return initVar(name, value);
}

bool MGlobal::initOptionVar(const MString &name, double value)
{
    return initVar(name, value);
}

bool MGlobal::initOptionVar(const MString &name, const MString &value)
{
    return initVar(name, utf8(value));
}

bool MGlobal::removeOptionVar(const MString &name)
{
    return hostServices() && hostServices()->removeOptionVar(utf8(name));
}

MGlobal::MMayaState MGlobal::mayaState(MStatus *ReturnStatus)
{
    // Without a host nothing may count on an interface.
    setStatus(ReturnStatus, hostServices() ? MS::kSuccess : MS::kFailure);
    return hostServices() && !hostServices()->isBatch() ? kInteractive : kBatch;
}

int MGlobal::apiVersion()
{
    return MAYA_API_VERSION;
}

// "2016" out of 201600, "2025" out of 20250000: the year is what comes first.
MString MGlobal::mayaVersion()
{
    return MString(std::to_string(MAYA_API_VERSION).c_str(), 4);
}

STANDIN_API_CLOSE
