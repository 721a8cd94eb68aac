// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MStatus.h>

#include <memory>

STANDIN_API_OPEN

// The flags and arguments that a command takes. Copies are independent.
class STANDIN_API MSyntax
{
public:
    enum MArgType {
        kInvalidArgType = 0,
        kNoArg = 1,
        kBoolean = 2,
        kLong = 3,
        kDouble = 4,
        kString = 5,
        kUnsigned = 6,
        kDistance = 7,
        kAngle = 8,
        kTime = 9,
        kSelectionItem = 10,
        kLastArgType = 11
    };
    enum MObjectFormat { kInvalidFormat = 0, kNone = 1, kStringObjects = 2, kSelectionList = 3 };

    MSyntax();
    MSyntax(const MSyntax &other);
    ~MSyntax();
    MSyntax &operator=(const MSyntax &other);

    // Names with their dash: the short one of at most three letters, the long one of at least
    // four. Fails when a name breaks that rule or is taken.
    MStatus addFlag(const char *shortName, const char *longName, MArgType argType1 = kNoArg,
                    MArgType argType2 = kNoArg, MArgType argType3 = kNoArg,
                    MArgType argType4 = kNoArg, MArgType argType5 = kNoArg,
                    MArgType argType6 = kNoArg);
    MStatus addArg(MArgType type);
    // By either name of a flag that has been added.
    MStatus makeFlagMultiUse(const char *flag);
    MStatus makeFlagQueryWithFullArgs(const char *flag, bool queryArgsAreOptional);

    void enableQuery(bool supportsQuery = true);
    void enableEdit(bool supportsEdit = true);
    void useSelectionAsDefault(bool useSelection = false);
    MStatus setObjectType(MObjectFormat format, unsigned int minimum = 0);
    MStatus setObjectType(MObjectFormat format, unsigned int minimum, unsigned int maximum);

private:
    friend struct ::StandinAccess;
    struct Data;

    std::unique_ptr<Data> m_data;
};

STANDIN_API_CLOSE
