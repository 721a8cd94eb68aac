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

// Scripts, messages and option variables of the running host. Main thread only, but for the two
// idle forms.
class STANDIN_API MGlobal
{
public:
    enum MMayaState { kInteractive, kBatch, kLibraryApp, kBaseUIMode };

    // A result form gives the value of the last statement, or kFailure when the script fails or
    // the value has another type; the result is left alone then.
    static MStatus executeCommand(const MString &command, bool displayEnabled = false,
                                  bool undoEnabled = false);
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
    // A number is returned as text.
    static MString executeCommandStringResult(const MString &command, bool displayEnabled = false,
                                              bool undoEnabled = false,
                                              MStatus *ReturnStatus = nullptr);
    static MStatus executeCommandOnIdle(const MString &command, bool displayEnabled = false);

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

    static MStatus sourceFile(const MString &fileName);

    static void displayInfo(const MString &message);
    static void displayWarning(const MString &message);
    static void displayError(const MString &message);

    // A missing variable gives 0 or an empty text, and false in `valid`.
    static bool optionVarExists(const MString &name);
    static int optionVarIntValue(const MString &name, bool *valid = nullptr);
    static double optionVarDoubleValue(const MString &name, bool *valid = nullptr);
    static MString optionVarStringValue(const MString &name, bool *valid = nullptr);
    static bool setOptionVarValue(const MString &name, int value);
    static bool setOptionVarValue(const MString &name, double value);
    static bool setOptionVarValue(const MString &name, const MString &value);
    // Sets the value unless the variable exists; returns whether it was set.
    static bool initOptionVar(const MString &name, int value);
    static bool initOptionVar(const MString &name, double value);
    static bool initOptionVar(const MString &name, const MString &value);
    static bool removeOptionVar(const MString &name);

    static MMayaState mayaState(MStatus *ReturnStatus = nullptr);
    static int apiVersion();
    static MString mayaVersion();
};

STANDIN_API_CLOSE
