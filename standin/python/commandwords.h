// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/command.h"
#include "standin/python/pyref.h"

#include <optional>
#include <vector>

namespace standin {

// A call from Python as the words of a command: keyword arguments become flags, positional ones
// objects. Both objects are borrowed; the keywords may be null. None with a TypeError set when
// there is no such flag, or a value has no place in MEL.
std::optional<std::vector<mel::Value>> commandWords(const mel::Command &command,
                                                    PyObject *arguments, PyObject *keywords);

// MEL has no truth values; whether an int result of this call stands for one. It does when a switch
// is queried, or when the call asks whether something exists.
bool answersYesOrNo(const mel::Command &command, PyObject *keywords);

} // namespace standin
