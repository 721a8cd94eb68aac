// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MArgList.h>
#include <maya/MStandinSupport.h>
#include <maya/MSyntax.h>

#include <memory>

STANDIN_API_OPEN

class MStringArray;

// A command's words sorted into flags, arguments and objects by its syntax. Words that do not fit
// make the status kFailure; nothing is printed. Flags are named by either name, dash included.
class STANDIN_API MArgParser
{
public:
    MArgParser(const MSyntax &syntax, const MArgList &argList, MStatus *ReturnStatus = nullptr);
    virtual ~MArgParser();
    MArgParser(const MArgParser &) = delete;
    MArgParser &operator=(const MArgParser &) = delete;

    bool isEdit(MStatus *ReturnStatus = nullptr) const;
    bool isQuery(MStatus *ReturnStatus = nullptr) const;
    bool isFlagSet(const char *flag, MStatus *ReturnStatus = nullptr) const;
    unsigned int numberOfFlagsUsed() const;
    unsigned int numberOfFlagUses(const char *flag) const;

    // Of the flag's last use.
    MStatus getFlagArgument(const char *flag, unsigned int index, bool &value) const;
    MStatus getFlagArgument(const char *flag, unsigned int index, int &value) const;
    MStatus getFlagArgument(const char *flag, unsigned int index, double &value) const;
    MStatus getFlagArgument(const char *flag, unsigned int index, MString &value) const;
    bool flagArgumentBool(const char *flag, unsigned int index,
                          MStatus *ReturnStatus = nullptr) const;
    int flagArgumentInt(const char *flag, unsigned int index,
                        MStatus *ReturnStatus = nullptr) const;
    double flagArgumentDouble(const char *flag, unsigned int index,
                              MStatus *ReturnStatus = nullptr) const;
    MString flagArgumentString(const char *flag, unsigned int index,
                               MStatus *ReturnStatus = nullptr) const;
    // The arguments of each use of a multi-use flag.
    MStatus getFlagArgumentList(const char *flag, unsigned int use, MArgList &arguments) const;

    MStatus getCommandArgument(unsigned int index, bool &value) const;
    MStatus getCommandArgument(unsigned int index, int &value) const;
    MStatus getCommandArgument(unsigned int index, double &value) const;
    MStatus getCommandArgument(unsigned int index, MString &value) const;
    bool commandArgumentBool(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    int commandArgumentInt(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    double commandArgumentDouble(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    MString commandArgumentString(unsigned int index, MStatus *ReturnStatus = nullptr) const;

    MStatus getObjects(MStringArray &objects) const;

private:
    struct Data;

    std::unique_ptr<Data> m_data;
};

STANDIN_API_CLOSE
