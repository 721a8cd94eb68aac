// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinArray.h>
#include <maya/MString.h>

STANDIN_API_OPEN

// A growing list of texts; the value of a MEL string[].
class STANDIN_API MStringArray : public StandinArray<MString>
{
public:
    MStringArray() = default;
    MStringArray(unsigned int initialSize, const MString &initialValue)
        : StandinArray(initialSize, initialValue)
    {
    }
    MStringArray(const MString source[], unsigned int count) : StandinArray(source, count) {}
    // From texts in UTF-8; a null one is empty.
    MStringArray(const char *source[], unsigned int count);

    MStatus copy(const MStringArray &source)
    {
        *this = source;
        return MStatus::kSuccess;
    }
    MStringArray &operator+=(const MStringArray &other)
    {
        appendAll(other);
        return *this;
    }
};

STANDIN_API_CLOSE
