// SPDX-License-Identifier: MIT
#include "standin/mel/functions.h"

#include "standin/mel/runtime.h"

#include <cstdlib>
#include <filesystem>

namespace mel {

namespace {

// An unset variable and an empty one are the same to a script.
Value getenv(const Arguments &call)
{
    const char *value = std::getenv(call.text(0).c_str());
    return std::string(value ? value : "");
}

// 0 when it worked. Programs that the script starts see it too.
Value putenv(const Arguments &call)
{
    return setenv(call.text(0).c_str(), call.text(1).c_str(), 1);
}

// Not the environment: the names of the global variables.
Value env(const Arguments &call)
{
    return call.runtime.variables.names();
}

// Waits for the end; what goes to the standard error stream is not part of the answer.
Value system(const Arguments &call)
{
    std::FILE *pipe = popen(call.text(0).c_str(), "r");
    if (!pipe)
        throw RuntimeError("Cannot run \"" + call.text(0) + "\".");
    std::string output;
    char buffer[4096];
    while (const size_t count = std::fread(buffer, 1, sizeof buffer, pipe))
        output.append(buffer, count);
    pclose(pipe);
    return output;
}

// Through the shell, in the background.
Value exec(const Arguments &call)
{
    // The line break keeps a comment at the end of the text from hiding the parenthesis.
    return std::system(("( " + call.text(0) + "\n) &").c_str());
}

Value pwd(const Arguments &)
{
    std::error_code ignored;
    return std::filesystem::current_path(ignored).u8string();
}

// 0 when it worked, else -1; no error either way.
Value chdir(const Arguments &call)
{
    std::error_code failure;
    std::filesystem::current_path(std::filesystem::u8path(call.text(0)), failure);
    return failure ? -1 : 0;
}

const Function rows[] = {
    {"getenv", "s:s", getenv}, {"putenv", "i:ss", putenv}, {"env", "S:", env},
    {"system", "s:s", system}, {"exec", "i:s", exec},      {"pwd", "s:", pwd},
    {"chdir", "i:s", chdir},
};

} // namespace

FunctionTable systemFunctions()
{
    return {rows, std::size(rows)};
}

} // namespace mel
