// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

STANDIN_API_OPEN

class MCommandResult;
class MDoubleArray;
class MIntArray;
class MStringArray;

// Scripts, messages and option variables of the running host. Nothing here is an object; the state
// is the host's. Main thread only, but for the two idle forms and the three that display.
// Selection, undo and everything about scenes are left out. Without a host scripts fail, messages
// are lost and no variable exists.
class STANDIN_API MGlobal
{
public:
    // kLibraryApp and kBaseUIMode never occur here.
    enum MMayaState { kInteractive, kBatch, kLibraryApp, kBaseUIMode };

    // Runs MEL at once, nested in whatever is running. `displayEnabled` echoes the text and its
    // value; without it what the script prints, warns and reports still arrives. `undoEnabled` is
    // ignored: nothing can be undone here. kFailure when the script fails, which has been reported
    // by then.
    static MStatus executeCommand(const MString &command, bool displayEnabled = false,
                                  bool undoEnabled = false);
    // The result forms give the value of the last statement, or kFailure when the script fails or
    // the value has another type; the result is left alone then. Only a variable of exactly the
    // type selects a form: a bool or a literal in its place would be taken for `displayEnabled`.
    static MStatus executeCommand(const MString &command, MCommandResult &result,
                                  bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString &command, int &result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString &command, MIntArray &result,
                                  bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString &command, double &result,
                                  bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString &command, MDoubleArray &result,
                                  bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString &command, MString &result,
                                  bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString &command, MStringArray &result,
                                  bool displayEnabled = false, bool undoEnabled = false);
    // A number is returned as text; anything else that is no string is an empty text and kFailure.
    static MString executeCommandStringResult(const MString &command, bool displayEnabled = false,
                                              bool undoEnabled = false,
                                              MStatus *ReturnStatus = nullptr);
    // Queues MEL for the next idle moment of the event loop, from any thread; first in, first out
    // with the Python form. Success only says that it was queued. A batch session, which has no
    // idle moments, forgets it.
    static MStatus executeCommandOnIdle(const MString &command, bool displayEnabled = false);

    // The same for Python, which runs in __main__. A text has a value only if it is a single
    // expression. An uncaught exception is reported as an error message and makes the status
    // kFailure.
    static MStatus executePythonCommand(const MString &command, bool displayEnabled = false,
                                        bool undoEnabled = false);
    static MStatus executePythonCommand(const MString &command, int &result,
                                        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(const MString &command, MIntArray &result,
                                        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(const MString &command, double &result,
                                        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(const MString &command, MDoubleArray &result,
                                        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(const MString &command, MString &result,
                                        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(const MString &command, MStringArray &result,
                                        bool displayEnabled = false, bool undoEnabled = false);
    static MString executePythonCommandStringResult(const MString &command,
                                                    bool displayEnabled = false,
                                                    bool undoEnabled = false,
                                                    MStatus *ReturnStatus = nullptr);
    static MStatus executePythonCommandOnIdle(const MString &command, bool displayEnabled = false);

    // Runs a MEL file; a name without folder is looked up on the script path. Nothing is echoed.
    static MStatus sourceFile(const MString &fileName);

    // A message with exactly this text. From another thread it arrives when the main thread gets to
    // it.
    static void displayInfo(const MString &message);
    static void displayWarning(const MString &message);
    static void displayError(const MString &message);

    // Option variables survive the session. A missing variable, or one of another type, gives 0 or
    // an empty text, and false in `valid`; an int is taken for a double.
    static bool optionVarExists(const MString &name);
    static int optionVarIntValue(const MString &name, bool *valid = nullptr);
    static double optionVarDoubleValue(const MString &name, bool *valid = nullptr);
    static MString optionVarStringValue(const MString &name, bool *valid = nullptr);
    // Sets the value, of whatever type it was before; false only without a host.
    static bool setOptionVarValue(const MString &name, int value);
    static bool setOptionVarValue(const MString &name, double value);
    static bool setOptionVarValue(const MString &name, const MString &value);
    // Sets the value unless the variable exists; returns whether it was set.
    static bool initOptionVar(const MString &name, int value);
    static bool initOptionVar(const MString &name, double value);
    static bool initOptionVar(const MString &name, const MString &value);
    // False when there is no such variable.
    static bool removeOptionVar(const MString &name);

    // kBatch for a session without interface, else kInteractive.
    static MMayaState mayaState(MStatus *ReturnStatus = nullptr);
    // MAYA_API_VERSION of the libraries, not of the headers a plug-in was compiled with.
    static int apiVersion();
    // The year only, such as "2016".
    static MString mayaVersion();
};

STANDIN_API_CLOSE
