// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MGlobal.h>
#include <maya/MString.h>

#include <exception>

// Runs `body` for Maya: a C++ exception that left the plug-in would take Maya down, so it is shown
// as an error instead. Returns what the body returns, or `onFailure`. For functions that Maya calls
// and for slots through which the user's code runs at once.
template <typename Result, typename Body>
Result guarded(const Result &onFailure, Body body) noexcept
{
    try {
        return body();
    } catch (const std::exception &problem) {
        MGlobal::displayError(MString("Corvane Editor: ") + problem.what());
    } catch (...) {
        MGlobal::displayError(MString("Corvane Editor: unexpected failure"));
    }
    return onFailure;
}
