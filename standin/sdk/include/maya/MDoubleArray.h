// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinArray.h>

STANDIN_API_OPEN

// A growing list of doubles; the value of a MEL float[].
class STANDIN_API MDoubleArray : public StandinArray<double>
{
public:
    MDoubleArray() = default;
    MDoubleArray(unsigned int initialSize, const double &initialValue)
        : StandinArray(initialSize, initialValue)
    {
    }
    MDoubleArray(const double source[], unsigned int count) : StandinArray(source, count) {}

    MStatus copy(const MDoubleArray &source)
    {
        *this = source;
        return MStatus::kSuccess;
    }
    MDoubleArray &operator+=(const MDoubleArray &other)
    {
        appendAll(other);
        return *this;
    }
};

STANDIN_API_CLOSE
