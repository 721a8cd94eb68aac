// SPDX-License-Identifier: MIT
#pragma once

// From 2018 on every class lives in a namespace that names the release, so that two releases never
// share a mangled name. A plain "class MString;" would declare another class; whoever needs a
// forward declaration includes this header instead.
#include <maya/MTypes.h>

#if MAYA_API_VERSION < 20180000
#error "MApiNamespace.h is part of the API from 2018 on"
#endif

// In two steps: the arguments of ## are not expanded, so the number needs a macro in between.
#define STANDIN_JOIN(a, b) a##b
#define STANDIN_VERSIONED_NAME(version) STANDIN_JOIN(OpenMaya, version)

// The three names that code declaring something of its own inside the namespace uses.
#define OPENMAYA_MAJOR_NAMESPACE Autodesk::Maya::STANDIN_VERSIONED_NAME(MAYA_API_VERSION)
#define OPENMAYA_MAJOR_NAMESPACE_OPEN                                                              \
    namespace Autodesk {                                                                           \
    namespace Maya {                                                                               \
    namespace STANDIN_VERSIONED_NAME(MAYA_API_VERSION)                                             \
    {
#define OPENMAYA_MAJOR_NAMESPACE_CLOSE                                                             \
    }                                                                                              \
    }                                                                                              \
    }

// A nested enumeration; a macro only because code may spell it so.
#define OPENMAYA_ENUM(Name, ...) enum Name { __VA_ARGS__ }

OPENMAYA_MAJOR_NAMESPACE_OPEN

// Every class that this stand-in has.
class MArgDatabase;
class MArgList;
class MArgParser;
class MCallbackIdArray;
class MCommandMessage;
class MCommandResult;
class MCommonSystemUtils;
class MDoubleArray;
class MFn;
class MFnPlugin;
class MGlobal;
class MIntArray;
class MMessage;
class MObject;
class MPxCommand;
class MQtUtil;
class MStatus;
class MString;
class MStringArray;
class MSyntax;

OPENMAYA_MAJOR_NAMESPACE_CLOSE

// Source code keeps writing the bare names.
using namespace OPENMAYA_MAJOR_NAMESPACE;
