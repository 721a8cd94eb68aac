// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/command.h"
#include "standin/mel/source.h"
#include "standin/mel/type.h"

namespace mel {

// What is wrong with a text, found while compiling; the parser adds the place.
// What reaches the callers of the parser bare is only that a file to source is missing.
class CompileError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Throws CompileError("Cannot cast data of type ... to ...."), for types known while compiling.
[[noreturn]] void failCast(Type from, Type to);

// Messages that are errors while compiling in one place and while running in another.
std::string argumentCountText(const std::string &name);
std::string missingProcedureText(const std::string &name);

// The message for whatever a command may throw.
// Running out of memory gets a sentence of its own, as the library's texts for it mean nothing to a
// reader of scripts.
std::string failureText(const std::exception &error);

// A text that cannot run. Its messages are, in order, the source line and the error in its place.
class CompileFailure : public RuntimeError
{
public:
    CompileFailure(std::string line, const std::string &located)
        : RuntimeError(located), sourceLine(std::move(line))
    {
    }

    // With its line break if it has one.
    std::string sourceLine;
};

// A run-time error on its way out: the message with its place, and the calls it has left so far.
class LocatedError : public RuntimeError
{
public:
    struct Step
    {
        std::string procedure; // empty at top level
        Place place;
    };

    using RuntimeError::RuntimeError;

    // The calls from the failing place outwards, one a line. Needs at least one step.
    std::string traceText() const;

    std::vector<Step> steps; // innermost first
};

} // namespace mel
