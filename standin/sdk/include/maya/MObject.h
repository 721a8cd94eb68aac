// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MFn.h>
#include <maya/MStandinSupport.h>

STANDIN_API_OPEN

// A handle to something of the host; the only such thing here is a plug-in. Copies are handles to
// the same thing. It owns nothing and is not told when the thing goes: what the entry points get is
// good until the plug-in is unloaded.
class STANDIN_API MObject
{
public:
    MObject() = default;
    MObject(const MObject &other) = default;
    // Deliberate: not defaulted. A class with a destructor of its own is passed by address, which
    // is part of the entry points' binary form.
    ~MObject();
    MObject &operator=(const MObject &other) = default;

    // The same thing, not an equal one. Null handles are equal.
    bool operator==(const MObject &other) const { return m_target == other.m_target; }
    bool operator!=(const MObject &other) const { return m_target != other.m_target; }

    MFn::Type apiType() const { return m_target ? MFn::kPlugin : MFn::kInvalid; }
    const char *apiTypeStr() const;
    bool hasFn(MFn::Type type) const;
    bool isNull() const { return !m_target; }

    // Null at all times; nobody assigns to it.
    static MObject kNullObj;

private:
    friend struct ::StandinAccess;

    // What only the libraries know the type of; null in the null object.
    void *m_target = nullptr;
};

STANDIN_API_CLOSE
