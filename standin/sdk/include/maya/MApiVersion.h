// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>

// Defines, not only declares, the version text that the host looks up in a plug-in before it runs
// any of its code. So one source file of a plug-in includes this header, by way of MFnPlugin.h, and
// no other does: a second definition would not link.
//
// Two macros, because # takes its argument as it is written: the outer one expands it first.
#define STANDIN_TEXT_OF(word) #word
#define STANDIN_VERSION_TEXT(version) STANDIN_TEXT_OF(version)

// An array and not a pointer: the symbol's address is the text.
extern STANDIN_API char MApiVersion[];
char MApiVersion[] = STANDIN_VERSION_TEXT(MAYA_API_VERSION);
