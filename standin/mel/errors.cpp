// SPDX-License-Identifier: MIT
#include "standin/mel/errors.h"

#include <new>

namespace mel {

void failCast(Type from, Type to)
{
    throw CompileError(std::string("Cannot cast data of type ") + typeName(from) + " to " +
                       typeName(to) + ".");
}

std::string argumentCountText(const std::string &name)
{
    return "Wrong number of arguments on call to " + name + ".";
}

std::string missingProcedureText(const std::string &name)
{
    return "Cannot find procedure \"" + name + "\".";
}

std::string failureText(const std::exception &error)
{
    // An allocation beyond what a container can count is the same to a script.
    const bool lacksMemory = dynamic_cast<const std::bad_alloc *>(&error) ||
                             dynamic_cast<const std::length_error *>(&error);
    return lacksMemory ? "Out of memory." : error.what();
}

std::string LocatedError::traceText() const
{
    std::string text = "Start of trace: (" + steps.front().place.traceText() + ").";
    for (size_t i = 0; i + 1 < steps.size(); ++i) {
        // A sourced file is a step of its own, but no procedure.
        if (!steps[i].procedure.empty())
            text += "\n" + steps[i].procedure + " (" + steps[i + 1].place.traceText() + ").";
    }
    return text;
}

} // namespace mel
