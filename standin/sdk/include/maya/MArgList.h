// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MString.h>

#include <climits>
#include <vector>

STANDIN_API_OPEN

// The words after a command's name, flags included, in the order in which they were typed. A value:
// it owns its words. Indices are 0-based. A word that does not read as the wanted type, and an
// index beyond the end, are kInvalidParameter. Values with units, points and arrays are left out.
class STANDIN_API MArgList
{
public:
    // What flagIndex() returns instead of a position.
    enum { kInvalidArgIndex = UINT_MAX };

    unsigned int length(MStatus *ReturnStatus = nullptr) const;

    // The value itself, or 0, false or an empty text together with a failed status. A number with a
    // fraction reads as an int without it; "on", "yes" and the like read as bool.
    bool asBool(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    int asInt(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    double asDouble(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    MString asString(unsigned int index, MStatus *ReturnStatus = nullptr) const;

    // The same into a variable, which keeps its value on failure.
    MStatus get(unsigned int index, bool &value) const;
    MStatus get(unsigned int index, int &value) const;
    MStatus get(unsigned int index, double &value) const;
    MStatus get(unsigned int index, MString &value) const;

    // Position of the first word that is the flag, looked for by both names, given with or without
    // their dash. The word itself has to have one. kInvalidArgIndex when there is no such word.
    unsigned int flagIndex(const char *shortFlag, const char *longFlag = nullptr) const;

    // Adds a word at the end; always succeeds.
    MStatus addArg(bool value);
    MStatus addArg(int value);
    MStatus addArg(double value);
    MStatus addArg(const MString &value);

private:
    std::vector<MString> m_words;
};

STANDIN_API_CLOSE
