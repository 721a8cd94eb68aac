// SPDX-License-Identifier: MIT
#pragma once

// The release whose API is offered: six digits up to 2017, eight from 2018 on. The build passes the
// configured one; both a plug-in and the libraries have to be compiled with the same.
#ifndef MAYA_API_VERSION
#define MAYA_API_VERSION 201600
#endif

#if MAYA_API_VERSION >= 20180000
#include <maya/MApiNamespace.h>
#endif
