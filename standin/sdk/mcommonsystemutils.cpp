// SPDX-License-Identifier: MIT
#include <maya/MCommonSystemUtils.h>

#include "standin/sdk/convert.h"
#include "standin/sdk/standinaccess.h"

#include <cstdlib>
#include <filesystem>

using namespace standin;

STANDIN_API_OPEN

MString MCommonSystemUtils::getEnv(const MString &variable, MStatus *ReturnStatus)
{
    // Deliberate: success even for a missing variable, as the application has been seen to answer.
    // Code that works here looks at the text as well.
    setStatus(ReturnStatus, MS::kSuccess);
    const char *value = std::getenv(variable.asUTF8());
    return value ? MString(value) : MString();
}

MStatus MCommonSystemUtils::getEnv(const MString &variable, MString &value)
{
    value = getEnv(variable);
    return MS::kSuccess;
}

MStatus MCommonSystemUtils::putEnv(const MString &variable, const MString &value)
{
#ifdef _WIN32
    const bool done = _putenv_s(variable.asChar(), value.asChar()) == 0;
#else
    const bool done = setenv(variable.asChar(), value.asChar(), 1) == 0;
#endif
    return done ? MS::kSuccess : MS::kFailure;
}

MStatus MCommonSystemUtils::makeDirectory(const MString &path)
{
    // The forms with an error code, for no exception may leave the library.
    std::error_code problem;
    const std::filesystem::path directory = std::filesystem::u8path(utf8(path));
    std::filesystem::create_directories(directory, problem);
    return std::filesystem::is_directory(directory, problem) ? MS::kSuccess : MS::kFailure;
}

STANDIN_API_CLOSE
