// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MString.h>

#include <memory>

STANDIN_API_OPEN

class MDoubleArray;
class MIntArray;
class MStringArray;

// The value of a MEL text, whatever its type; filled by MGlobal::executeCommand(). Owns a copy of
// the value, which a failing command leaves as it was.
class STANDIN_API MCommandResult
{
public:
    // kInvalid stands for a command without a value; kMatrixArray never occurs.
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

    // Always succeeds.
    Type resultType(MStatus *ReturnStatus = nullptr) const;

    // kFailure when the value is of another type; the variable is left alone then. An int is taken
    // for a double, and an empty array for an array of any type. Vectors and matrices cannot be
    // read here.
    MStatus getResult(int &value) const;
    MStatus getResult(MIntArray &value) const;
    MStatus getResult(double &value) const;
    MStatus getResult(MDoubleArray &value) const;
    MStatus getResult(MString &value) const;
    MStatus getResult(MStringArray &value) const;
    // Numbers become text too; arrays are kFailure and give an empty one.
    MString stringResult(MStatus *ReturnStatus = nullptr) const;

private:
    friend struct ::StandinAccess;
    struct Data;

    std::unique_ptr<Data> m_data;
};

STANDIN_API_CLOSE
