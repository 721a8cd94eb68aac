// SPDX-License-Identifier: MIT
#include <maya/MObject.h>

STANDIN_API_OPEN

MObject MObject::kNullObj;

// Deliberate: defined here and not in the class. A destructor of its own decides how the object is
// passed to an entry point, by address, and so what the compiled entry point expects.
MObject::~MObject() {}

const char *MObject::apiTypeStr() const
{
    // The enumerator's name; plug-ins are all there is.
    return isNull() ? "kInvalid" : "kPlugin";
}

bool MObject::hasFn(MFn::Type type) const
{
    return !isNull() && (type == MFn::kPlugin || type == MFn::kBase);
}

STANDIN_API_CLOSE
