// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MStatus.h>

#include <cstdint>

STANDIN_API_OPEN

class MCallbackIdArray;

// Names a callback; 0 is none. Ids are never given again in one process.
typedef std::uintptr_t MCallbackId; // 0 is none

// Base of the message classes: what can be done with any callback. Main thread only.
class STANDIN_API MMessage
{
public:
    // The function is not called again, though a call that is running ends normally; so a callback
    // may remove itself. kInvalidParameter for an id that is not in use.
    static MStatus removeCallback(MCallbackId id);
    // Removes all it can; fails when one of them was not in use.
    static MStatus removeCallbacks(const MCallbackIdArray &ids);

    // The callback that is running, the innermost of several; 0 and kFailure outside of one.
    static MCallbackId currentCallbackId(MStatus *ReturnStatus = nullptr);
};

STANDIN_API_CLOSE
