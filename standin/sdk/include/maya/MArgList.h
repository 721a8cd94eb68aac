// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MString.h>

#include <climits>
#include <vector>

STANDIN_API_OPEN

// The words after a command's name, flags included. A word that is not of the wanted type is
// kInvalidParameter unless it reads as one.
class STANDIN_API MArgList
{
public:
    enum { kInvalidArgIndex = UINT_MAX };

    unsigned int length(MStatus *ReturnStatus = nullptr) const;

    bool asBool(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    int asInt(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    double asDouble(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    MString asString(unsigned int index, MStatus *ReturnStatus = nullptr) const;

    MStatus get(unsigned int index, bool &value) const;
    MStatus get(unsigned int index, int &value) const;
    MStatus get(unsigned int index, double &value) const;
    MStatus get(unsigned int index, MString &value) const;

    // Names with or without their dash; kInvalidArgIndex when the flag is not among the words.
    unsigned int flagIndex(const char *shortFlag, const char *longFlag = nullptr) const;

    MStatus addArg(bool value);
    MStatus addArg(int value);
    MStatus addArg(double value);
    MStatus addArg(const MString &value);

private:
    std::vector<MString> m_words;
};

STANDIN_API_CLOSE
