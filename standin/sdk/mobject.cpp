// SPDX-License-Identifier: MIT
#include <maya/MObject.h>

STANDIN_API_OPEN

MObject MObject::kNullObj;

// Deliberate: defined here, it decides how the object is passed to an entry point.
MObject::~MObject() {}

const char *MObject::apiTypeStr() const
{
    return isNull() ? "kInvalid" : "kPlugin";
}

bool MObject::hasFn(MFn::Type type) const
{
    return !isNull() && (type == MFn::kPlugin || type == MFn::kBase);
}

STANDIN_API_CLOSE
