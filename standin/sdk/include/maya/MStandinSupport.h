// SPDX-License-Identifier: MIT
#pragma once

// What every header of the stand-in begins with. Nothing here exists in the application itself, so
// plug-ins use none of it.
#include <maya/MTypes.h>

// Everything is compiled with hidden symbols; what plug-ins and the host link to says so.
#if defined(__GNUC__)
#define STANDIN_API __attribute__((visibility("default")))
#else
#define STANDIN_API
#endif

// Every class lives in the versioned namespace where the release has one.
#if MAYA_API_VERSION >= 20180000
#define STANDIN_API_OPEN OPENMAYA_MAJOR_NAMESPACE_OPEN
#define STANDIN_API_CLOSE OPENMAYA_MAJOR_NAMESPACE_CLOSE
#else
#define STANDIN_API_OPEN
#define STANDIN_API_CLOSE
#endif

// The libraries' own way to the inside of the classes; a friend of those that have one.
struct StandinAccess;
