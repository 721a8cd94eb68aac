// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MArgList.h>
#include <maya/MStandinSupport.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

STANDIN_API_OPEN

// Base of a plug-in's commands. The host makes an object for each run and deletes it afterwards.
class STANDIN_API MPxCommand
{
public:
    enum MResultType { kLong, kDouble, kString, kNoArg };

    MPxCommand();
    virtual ~MPxCommand();
    MPxCommand(const MPxCommand &) = delete;
    MPxCommand &operator=(const MPxCommand &) = delete;

    virtual MStatus doIt(const MArgList &args);
    virtual MStatus redoIt();
    virtual MStatus undoIt();
    virtual bool isUndoable() const;
    virtual bool hasSyntax() const;

    // What the registered function returned; empty outside doIt().
    MSyntax syntax() const;

    static void displayInfo(const MString &message);
    static void displayWarning(const MString &message, bool showLineNumber = false);
    static void displayError(const MString &message, bool showLineNumber = false);

    // The value of the command that is running.
    static void setResult(bool value);
    static void setResult(int value);
    static void setResult(double value);
    static void setResult(const char *value);
    static void setResult(const MString &value);
    static void setResult(const MStringArray &value);
    // A second value makes the result an array; one of another type than the first is left out.
    static void appendToResult(bool value);
    static void appendToResult(int value);
    static void appendToResult(double value);
    static void appendToResult(const char *value);
    static void appendToResult(const MString &value);
    static void appendToResult(const MStringArray &value);
    static void clearResult();

protected:
    bool isHistoryOn() const { return m_isHistoryOn; }
    MString commandString() const { return m_commandString; }
    MStatus setHistoryOn(bool on);
    MStatus setCommandString(const MString &text);

private:
    bool m_isHistoryOn = true;
    MString m_commandString;
};

STANDIN_API_CLOSE
