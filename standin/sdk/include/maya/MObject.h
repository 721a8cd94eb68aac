// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MFn.h>
#include <maya/MStandinSupport.h>

STANDIN_API_OPEN

// A handle to something of the host; the only such thing here is a plug-in.
class STANDIN_API MObject
{
public:
    MObject() = default;
    MObject(const MObject &other) = default;
    ~MObject();
    MObject &operator=(const MObject &other) = default;

    bool operator==(const MObject &other) const { return m_target == other.m_target; }
    bool operator!=(const MObject &other) const { return m_target != other.m_target; }

    MFn::Type apiType() const { return m_target ? MFn::kPlugin : MFn::kInvalid; }
    const char *apiTypeStr() const;
    bool hasFn(MFn::Type type) const;
    bool isNull() const { return !m_target; }

    static MObject kNullObj;

private:
    friend struct ::StandinAccess;

    void *m_target = nullptr;
};

STANDIN_API_CLOSE
