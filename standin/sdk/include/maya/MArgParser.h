// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MArgList.h>
#include <maya/MStandinSupport.h>
#include <maya/MSyntax.h>

#include <memory>

STANDIN_API_OPEN

class MStringArray;

// A command's words sorted into flags, arguments and objects by its syntax. The words are sorted
// once, by the constructor, and copied: neither the syntax nor the list has to live on.
//
// Words that do not fit make the constructor's status kFailure, and nothing is printed; what stood
// before them can still be asked for. Later calls give kInvalidParameter for a flag that the syntax
// does not have, an index beyond the end, or a word that does not read as the wanted type. Flags
// are named by either name, with or without the dash. Values with units are read as plain numbers.
class STANDIN_API MArgParser
{
public:
    MArgParser(const MSyntax &syntax, const MArgList &argList, MStatus *ReturnStatus = nullptr);
    virtual ~MArgParser();
    MArgParser(const MArgParser &) = delete;
    MArgParser &operator=(const MArgParser &) = delete;

    // Whether -edit or -query stood among the words; never without the syntax allowing it.
    bool isEdit(MStatus *ReturnStatus = nullptr) const;
    bool isQuery(MStatus *ReturnStatus = nullptr) const;
    // Also true, in a query, for a flag without its arguments.
    bool isFlagSet(const char *flag, MStatus *ReturnStatus = nullptr) const;
    // Different flags; -edit and -query are not counted.
    unsigned int numberOfFlagsUsed() const;
    unsigned int numberOfFlagUses(const char *flag) const;

    // The index counts the flag's own arguments from 0. Of a flag that is used several times these
    // are the arguments of its last use; of one that is not used there are none: kInvalidParameter.
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
    // The arguments of one use of a multi-use flag, counted from 0.
    MStatus getFlagArgumentList(const char *flag, unsigned int use, MArgList &arguments) const;

    // The arguments that the syntax declares, without flags and objects; 0-based.
    MStatus getCommandArgument(unsigned int index, bool &value) const;
    MStatus getCommandArgument(unsigned int index, int &value) const;
    MStatus getCommandArgument(unsigned int index, double &value) const;
    MStatus getCommandArgument(unsigned int index, MString &value) const;
    bool commandArgumentBool(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    int commandArgumentInt(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    double commandArgumentDouble(unsigned int index, MStatus *ReturnStatus = nullptr) const;
    MString commandArgumentString(unsigned int index, MStatus *ReturnStatus = nullptr) const;

    // The words behind the declared arguments, as names. Replaces the array; always succeeds.
    MStatus getObjects(MStringArray &objects) const;

private:
    struct Data;

    std::unique_ptr<Data> m_data;
};

STANDIN_API_CLOSE
