// SPDX-License-Identifier: MIT
#include <maya/MCommandResult.h>

#include "standin/sdk/convert.h"
#include "standin/sdk/standinaccess.h"

using namespace standin;

STANDIN_API_OPEN

namespace {

// Row n belongs to alternative n of mel::Value. Arrays of matrices do not exist there.
const MCommandResult::Type resultTypes[] = {
    MCommandResult::kInvalid,     MCommandResult::kInt,         MCommandResult::kDouble,
    MCommandResult::kString,      MCommandResult::kVector,      MCommandResult::kMatrix,
    MCommandResult::kIntArray,    MCommandResult::kDoubleArray, MCommandResult::kStringArray,
    MCommandResult::kVectorArray,
};
static_assert(sizeof resultTypes / sizeof *resultTypes == std::variant_size_v<mel::Value>,
              "a type of value has no row");

MStatus statusOf(bool ok)
{
    return ok ? MS::kSuccess : MS::kFailure;
}

} // namespace

MCommandResult::MCommandResult(MStatus *ReturnStatus) : m_data(std::make_unique<Data>())
{
    // An empty result is a result; it is filled later.
    setStatus(ReturnStatus, MS::kSuccess);
}

MCommandResult::~MCommandResult() = default;

MCommandResult::Type MCommandResult::resultType(MStatus *ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    // Whatever alternative the value holds has a row, which the assertion above sees to.
    return resultTypes[m_data->value.index()];
}

MStatus MCommandResult::getResult(int &value) const
{
    return statusOf(convert(m_data->value, value));
}

MStatus MCommandResult::getResult(MIntArray &value) const
{
    return statusOf(convert(m_data->value, value));
}

MStatus MCommandResult::getResult(double &value) const
{
    return statusOf(convert(m_data->value, value));
}

MStatus MCommandResult::getResult(MDoubleArray &value) const
{
    return statusOf(convert(m_data->value, value));
}

MStatus MCommandResult::getResult(MString &value) const
{
    return statusOf(convert(m_data->value, value));
}

MStatus MCommandResult::getResult(MStringArray &value) const
{
    return statusOf(convert(m_data->value, value));
}

MString MCommandResult::stringResult(MStatus *ReturnStatus) const
{
    MString text;
    setStatus(ReturnStatus, convertToText(m_data->value, text) ? MS::kSuccess : MS::kFailure);
    return text;
}

STANDIN_API_CLOSE
