// SPDX-License-Identifier: MIT
#pragma once

// A switch that lives in Maya: the MEL that sets it, 0 or 1 appended, and the option variable in
// which Maya's own Script Editor keeps it too (null: none). Both editors so show the same state.
struct MayaToggle
{
    const char *mel;
    const char *optionVariable;
};

const MayaToggle echoAllCommandsToggle = {"commandEcho -state ", "echoAllLines"};
const MayaToggle lineNumbersToggle = {"commandEcho -lineNumbers ", "showLineNumbersIsOn"};
const MayaToggle stackTraceToggle = {"stackTrace -state ", "stackTraceIsOn"};
const MayaToggle suppressStackWindowToggle = {"scriptEditorInfo -ssw ", nullptr};
