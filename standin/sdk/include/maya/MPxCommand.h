// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MArgList.h>
#include <maya/MStandinSupport.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

STANDIN_API_OPEN

// Base of a plug-in's commands. The host makes an object for each run, with the registered creator,
// and deletes it afterwards; it runs on the main thread and runs may nest. Nothing can be undone
// here, so an object never outlives its run.
class STANDIN_API MPxCommand
{
public:
    // Kinds of values; nothing in this stand-in takes or returns one.
    enum MResultType { kLong, kDouble, kString, kNoArg };

    MPxCommand();
    virtual ~MPxCommand();
    MPxCommand(const MPxCommand &) = delete;
    MPxCommand &operator=(const MPxCommand &) = delete;

    // The work. The list is the words behind the command's name, unsplit, and lives as long as the
    // call. A failed status stops the script with the status' text as its error, and so does an
    // exception.
    virtual MStatus doIt(const MArgList &args);
    // Never called here. A command that overrides nothing succeeds and is not undoable.
    virtual MStatus redoIt();
    virtual MStatus undoIt();
    virtual bool isUndoable() const;
    virtual bool hasSyntax() const;

    // What the registered function returned. Of use in doIt() only; it is not known before.
    MSyntax syntax() const;

    // As MGlobal's; with a line number the place of the running script stands in front of the text.
    static void displayInfo(const MString &message);
    static void displayWarning(const MString &message, bool showLineNumber = false);
    static void displayError(const MString &message, bool showLineNumber = false);

    // The value of the innermost command that is running; without one the call does nothing. It
    // replaces what was set before, and is dropped when doIt() fails. A bool becomes an int.
    static void setResult(bool value);
    static void setResult(int value);
    static void setResult(double value);
    static void setResult(const char *value);
    static void setResult(const MString &value);
    static void setResult(const MStringArray &value);
    // The first value stands alone, a second one of its type makes the result an array; one of
    // another type is left out. Each text of an array is appended by itself.
    static void appendToResult(bool value);
    static void appendToResult(int value);
    static void appendToResult(double value);
    static void appendToResult(const char *value);
    static void appendToResult(const MString &value);
    static void appendToResult(const MStringArray &value);
    // Back to a command without a value.
    static void clearResult();

protected:
    // Remembered for the command itself: this host keeps no history of commands.
    bool isHistoryOn() const { return m_isHistoryOn; }
    MString commandString() const { return m_commandString; }
    MStatus setHistoryOn(bool on);
    MStatus setCommandString(const MString &text);

private:
    bool m_isHistoryOn = true;
    MString m_commandString;
};

STANDIN_API_CLOSE
