// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MTypes.h>

#if MAYA_API_VERSION < 20180000
#error "MApiNamespace.h is part of the API from 2018 on"
#endif

#define STANDIN_JOIN(a, b) a##b
#define STANDIN_VERSIONED_NAME(version) STANDIN_JOIN(OpenMaya, version)

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

#define OPENMAYA_ENUM(Name, ...) enum Name { __VA_ARGS__ }

OPENMAYA_MAJOR_NAMESPACE_OPEN

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

using namespace OPENMAYA_MAJOR_NAMESPACE;
