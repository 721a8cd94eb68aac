// SPDX-License-Identifier: MIT
#include <maya/MSyntax.h>

#include "standin/sdk/standinaccess.h"

#include <initializer_list>

STANDIN_API_OPEN

MSyntax::Data::Flag *MSyntax::Data::find(const std::string &name)
{
    const std::string bare = standin::withoutDash(name);
    for (Flag &flag : flags) {
        if (flag.shortName == bare || flag.longName == bare)
            return &flag;
    }
    return nullptr;
}

// Never without data, not even when moved from: moving is copying.
MSyntax::MSyntax() : m_data(std::make_unique<Data>()) {}
MSyntax::MSyntax(const MSyntax &other) : m_data(std::make_unique<Data>(*other.m_data)) {}
MSyntax::~MSyntax() = default;

MSyntax &MSyntax::operator=(const MSyntax &other)
{
    *m_data = *other.m_data;
    return *this;
}

MStatus MSyntax::addFlag(const char *shortName, const char *longName, MArgType argType1,
                         MArgType argType2, MArgType argType3, MArgType argType4, MArgType argType5,
                         MArgType argType6)
{
    if (!shortName || !longName)
        return MS::kInvalidParameter;
    Data::Flag flag;
    flag.shortName = standin::withoutDash(shortName);
    flag.longName = standin::withoutDash(longName);
    // Found by either name below, so a short name may not be another flag's long one either:
    // Short names of up to three letters and long ones from four on can never be confused.
    const bool wellFormed =
        !flag.shortName.empty() && flag.shortName.size() <= 3 && flag.longName.size() >= 4;
    if (!wellFormed || m_data->find(shortName) || m_data->find(longName))
        return MS::kInvalidParameter;
    for (MArgType type : {argType1, argType2, argType3, argType4, argType5, argType6}) {
        // The default of the parameters behind the last type that was given.
        if (type == kNoArg)
            break;
        flag.arguments.push_back(type);
    }
    m_data->flags.push_back(flag);
    return MS::kSuccess;
}

MStatus MSyntax::addArg(MArgType type)
{
    // An argument without a value cannot be given.
    if (type <= kNoArg || type >= kLastArgType)
        return MS::kInvalidParameter;
    m_data->arguments.push_back(type);
    return MS::kSuccess;
}

MStatus MSyntax::makeFlagMultiUse(const char *flag)
{
    Data::Flag *found = m_data->find(flag);
    if (!found)
        return MS::kInvalidParameter;
    found->multiUse = true;
    return MS::kSuccess;
}

MStatus MSyntax::makeFlagQueryWithFullArgs(const char *flag, bool queryArgsAreOptional)
{
    Data::Flag *found = m_data->find(flag);
    if (!found)
        return MS::kInvalidParameter;
    found->queryArgument =
        queryArgsAreOptional ? mel::QueryArgument::Optional : mel::QueryArgument::Mandatory;
    return MS::kSuccess;
}

void MSyntax::enableQuery(bool supportsQuery)
{
    m_data->query = supportsQuery;
}

void MSyntax::enableEdit(bool supportsEdit)
{
    m_data->edit = supportsEdit;
}

// There is no selection that could stand in for missing objects.
void MSyntax::useSelectionAsDefault(bool) {}

MStatus MSyntax::setObjectType(MObjectFormat format, unsigned int minimum)
{
    // The largest number stands for "any".
    return setObjectType(format, minimum, static_cast<unsigned int>(-1));
}

MStatus MSyntax::setObjectType(MObjectFormat format, unsigned int minimum, unsigned int maximum)
{
    if (minimum > maximum)
        return MS::kInvalidParameter;
    m_data->objectFormat = format;
    m_data->minimumObjects = minimum;
    m_data->maximumObjects = maximum;
    return MS::kSuccess;
}

STANDIN_API_CLOSE
