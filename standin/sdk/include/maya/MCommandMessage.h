// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MMessage.h>
#include <maya/MStandinSupport.h>

STANDIN_API_OPEN

class MString;

// Messages about commands and what they print. Of the many message classes, the only one here.
//
// A callback is called on the main thread, whichever thread the message came from. It belongs to
// the plug-in, which removes it before it is unloaded; the application would crash over one left
// behind, the stand-in removes it and reports an error.
class STANDIN_API MCommandMessage : public MMessage
{
public:
    // The numbers are part of the interface: callbacks get them as they are.
    enum MessageType {
        kHistory = 0, // the text of a script that runs with display on
        kDisplay = 1, // what a script prints, exactly as printed
        kInfo = 2,
        kWarning = 3,
        kError = 4,
        kResult = 5, // a value as text
        kStackTrace = 6
    };

    // The text lives until the function returns. No exception may leave it.
    typedef void (*MMessageFunction)(const MString &message, MessageType messageType,
                                     void *clientData);

    // Setting `filterOutput` keeps the message out of the script editor's history.
    typedef void (*MMessageFilterFunction)(const MString &message, MessageType messageType,
                                           bool &filterOutput, void *clientData);

    // The function gets every message as bare text, without heading or closing mark, after the
    // script editor's history has it; also those that it causes itself, to a bounded depth. An
    // added callback starts with the next message. Returns 0, with kInvalidParameter, for a null
    // function.
    static MCallbackId addCommandOutputCallback(MMessageFunction func, void *clientData = nullptr,
                                                MStatus *ReturnStatus = nullptr);
    // The same before the history gets the message. Output callbacks hear of it even if it is
    // hidden.
    static MCallbackId addCommandOutputFilterCallback(MMessageFilterFunction func,
                                                      void *clientData = nullptr,
                                                      MStatus *ReturnStatus = nullptr);
};

STANDIN_API_CLOSE
