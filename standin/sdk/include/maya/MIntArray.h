// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinArray.h>

STANDIN_API_OPEN

// A growing list of ints; the value of a MEL int[].
class STANDIN_API MIntArray : public StandinArray<int>
{
public:
    MIntArray() = default;
    MIntArray(unsigned int initialSize, const int &initialValue)
        : StandinArray(initialSize, initialValue)
    {
    }
    MIntArray(const int source[], unsigned int count) : StandinArray(source, count) {}

    MStatus copy(const MIntArray &source)
    {
        *this = source;
        return MStatus::kSuccess;
    }
    MIntArray &operator+=(const MIntArray &other)
    {
        appendAll(other);
        return *this;
    }
};

STANDIN_API_CLOSE
