// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MString.h>

#include <memory>

STANDIN_API_OPEN

class MDoubleArray;
class MIntArray;
class MStringArray;

// The value of a MEL text, whatever its type.
class STANDIN_API MCommandResult
{
public:
    enum Type {
        kInvalid = 0,
        kInt,
        kIntArray,
        kDouble,
        kDoubleArray,
        kString,
        kStringArray,
        kVector,
        kVectorArray,
        kMatrix,
        kMatrixArray
    };

    explicit MCommandResult(MStatus *ReturnStatus = nullptr);
    ~MCommandResult();
    MCommandResult(const MCommandResult &) = delete;
    MCommandResult &operator=(const MCommandResult &) = delete;

    Type resultType(MStatus *ReturnStatus = nullptr) const;

    // kFailure when the value is of another type.
    MStatus getResult(int &value) const;
    MStatus getResult(MIntArray &value) const;
    MStatus getResult(double &value) const;
    MStatus getResult(MDoubleArray &value) const;
    MStatus getResult(MString &value) const;
    MStatus getResult(MStringArray &value) const;
    MString stringResult(MStatus *ReturnStatus = nullptr) const;

private:
    friend struct ::StandinAccess;
    struct Data;

    std::unique_ptr<Data> m_data;
};

STANDIN_API_CLOSE
