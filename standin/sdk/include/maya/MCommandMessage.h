// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MMessage.h>
#include <maya/MStandinSupport.h>

STANDIN_API_OPEN

class MString;

// Messages about commands and what they print.
class STANDIN_API MCommandMessage : public MMessage
{
public:
    enum MessageType {
        kHistory = 0,
        kDisplay = 1,
        kInfo = 2,
        kWarning = 3,
        kError = 4,
        kResult = 5,
        kStackTrace = 6
    };

    typedef void (*MMessageFunction)(const MString &message, MessageType messageType,
                                     void *clientData);

    // Setting `filterOutput` keeps the message out of the script editor's history.
    typedef void (*MMessageFilterFunction)(const MString &message, MessageType messageType,
                                           bool &filterOutput, void *clientData);

    // The function gets every message as bare text, without heading or closing mark; also those
    // that it causes itself.
    static MCallbackId addCommandOutputCallback(MMessageFunction func, void *clientData = nullptr,
                                                MStatus *ReturnStatus = nullptr);
    // The function gets every message before it is shown.
    static MCallbackId addCommandOutputFilterCallback(MMessageFilterFunction func,
                                                      void *clientData = nullptr,
                                                      MStatus *ReturnStatus = nullptr);
};

STANDIN_API_CLOSE
