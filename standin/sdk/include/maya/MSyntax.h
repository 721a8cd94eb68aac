// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MStatus.h>

#include <memory>

STANDIN_API_OPEN

// The flags and arguments that a command takes; a value whose copies are independent. A plug-in
// fills one in when its command is registered, MArgParser sorts words by it, and help shows it.
// Names, types and counts that do not fit are kInvalidParameter and leave it as it was.
class STANDIN_API MSyntax
{
public:
    // kUnsigned is checked as an int; kDistance, kAngle and kTime as plain numbers, since there are
    // no units here; kSelectionItem as a name.
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
    // The formats differ only in what help calls the objects: there is no scene to look them up in.
    enum MObjectFormat { kInvalidFormat = 0, kNone = 1, kStringObjects = 2, kSelectionList = 3 };

    MSyntax();
    MSyntax(const MSyntax &other);
    ~MSyntax();
    MSyntax &operator=(const MSyntax &other);

    // Names with or without their dash: the short one of at most three letters, the long one of at
    // least four. Fails when a name breaks that rule or is taken. Types are read up to the first
    // kNoArg.
    MStatus addFlag(const char *shortName, const char *longName, MArgType argType1 = kNoArg,
                    MArgType argType2 = kNoArg, MArgType argType3 = kNoArg,
                    MArgType argType4 = kNoArg, MArgType argType5 = kNoArg,
                    MArgType argType6 = kNoArg);
    // Arguments are mandatory and come in the order in which they were added; queries and edits may
    // leave them out.
    MStatus addArg(MArgType type);
    // By either name of a flag that has been added. Without it a flag may still be given several
    // times, but help does not say so.
    MStatus makeFlagMultiUse(const char *flag);
    // In a query such a flag takes all its arguments, or may take them; others take none then.
    MStatus makeFlagQueryWithFullArgs(const char *flag, bool queryArgsAreOptional);

    // Whether -query and -edit are understood; they need no addFlag().
    void enableQuery(bool supportsQuery = true);
    void enableEdit(bool supportsEdit = true);
    // No effect: nothing can be selected.
    void useSelectionAsDefault(bool useSelection = false);
    // How many words may follow the arguments; without a maximum, any number.
    MStatus setObjectType(MObjectFormat format, unsigned int minimum = 0);
    MStatus setObjectType(MObjectFormat format, unsigned int minimum, unsigned int maximum);

private:
    friend struct ::StandinAccess;
    struct Data;

    std::unique_ptr<Data> m_data;
};

STANDIN_API_CLOSE
