// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MMessage.h>
#include <maya/MStandinArray.h>

STANDIN_API_OPEN

// Ids of callbacks, to be removed together. It does not own the callbacks: they outlive it.
class STANDIN_API MCallbackIdArray : public StandinArray<MCallbackId>
{
public:
    MCallbackIdArray() = default;
    MCallbackIdArray(unsigned int initialSize, const MCallbackId &initialValue)
        : StandinArray(initialSize, initialValue)
    {
    }
    MCallbackIdArray(const MCallbackId source[], unsigned int count) : StandinArray(source, count)
    {
    }

    MStatus copy(const MCallbackIdArray &source)
    {
        *this = source;
        return MStatus::kSuccess;
    }
    MCallbackIdArray &operator+=(const MCallbackIdArray &other)
    {
        appendAll(other);
        return *this;
    }
};

STANDIN_API_CLOSE
