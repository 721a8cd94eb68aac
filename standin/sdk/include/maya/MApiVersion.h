// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>

// Defines the version text that the host looks up in a plug-in, so one source file of a plug-in
// includes this header and no other does.
#define STANDIN_TEXT_OF(word) #word
#define STANDIN_VERSION_TEXT(version) STANDIN_TEXT_OF(version)

extern STANDIN_API char MApiVersion[];
char MApiVersion[] = STANDIN_VERSION_TEXT(MAYA_API_VERSION);
