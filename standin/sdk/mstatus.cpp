// SPDX-License-Identifier: MIT
#include <maya/MStatus.h>
#include <maya/MString.h>

STANDIN_API_OPEN

namespace {

// One row per code, in the order of the codes.
const char *const errorTexts[] = {
    "(kSuccess): Success",
    "(kFailure): Unexpected Internal Failure",
    "(kInsufficientMemory): Insufficient Memory To Complete Operation",
    "(kInvalidParameter): Invalid Parameter Passed To Method",
    "(kLicenseFailure): Application Not Licensed For This Operation",
    "(kUnknownParameter): Unknown Parameter Passed To Method",
    "(kNotImplemented): Method Not Implemented",
    "(kNotFound): Item Not Found",
    "(kEndOfFile): End Of File Reached",
};

} // namespace

MString MStatus::errorString() const
{
    return errorTexts[m_code];
}

void MStatus::perror(const char *heading) const
{
    std::cerr << heading << ": " << errorTexts[m_code] << std::endl;
}

void MStatus::perror(const MString &heading) const
{
    perror(heading.asChar());
}

std::ostream &operator<<(std::ostream &stream, const MStatus &status)
{
    return stream << status.errorString();
}

STANDIN_API_CLOSE
