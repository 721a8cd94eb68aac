// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MStatus.h>

#include <cstdint>

STANDIN_API_OPEN

class MCallbackIdArray;

typedef std::uintptr_t MCallbackId; // 0 is none

// Base of the message classes.
class STANDIN_API MMessage
{
public:
    // kInvalidParameter for an id that is not in use.
    static MStatus removeCallback(MCallbackId id);
    static MStatus removeCallbacks(const MCallbackIdArray &ids);

    // The callback that is running; 0 and kFailure outside of one.
    static MCallbackId currentCallbackId(MStatus *ReturnStatus = nullptr);
};

STANDIN_API_CLOSE
