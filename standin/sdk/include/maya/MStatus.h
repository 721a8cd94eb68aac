// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>

#include <iostream>

STANDIN_API_OPEN

class MString;

// The outcome of a call.
class STANDIN_API MStatus
{
public:
    enum MStatusCode {
        kSuccess = 0,
        kFailure,
        kInsufficientMemory,
        kInvalidParameter,
        kLicenseFailure,
        kUnknownParameter,
        kNotImplemented,
        kNotFound,
        kEndOfFile
    };

    MStatus() = default;
    MStatus(MStatusCode code) : m_code(code) {}

    operator bool() const { return m_code == kSuccess; }
    bool error() const { return m_code != kSuccess; }
    MStatusCode statusCode() const { return m_code; }
    void clear() { m_code = kSuccess; }

    // The code's name in parentheses and a sentence; for messages, not for comparing.
    MString errorString() const;
    // Writes the error string to standard error, headed by the text.
    void perror(const char *heading) const;
    void perror(const MString &heading) const;

    bool operator==(const MStatus &other) const { return m_code == other.m_code; }
    bool operator!=(const MStatus &other) const { return m_code != other.m_code; }
    bool operator==(MStatusCode code) const { return m_code == code; }
    bool operator!=(MStatusCode code) const { return m_code != code; }
    friend bool operator==(MStatusCode code, const MStatus &status) { return status == code; }
    friend bool operator!=(MStatusCode code, const MStatus &status) { return status != code; }

private:
    MStatusCode m_code = kSuccess;
};

STANDIN_API std::ostream &operator<<(std::ostream &stream, const MStatus &status);

typedef MStatus MS;

STANDIN_API_CLOSE

#define CHECK_MSTATUS(status)                                                                      \
    do {                                                                                           \
        const MStatus checkedStatus = (status);                                                    \
        if (checkedStatus.error())                                                                 \
            std::cerr << __FILE__ << ":" << __LINE__ << ": " << checkedStatus << std::endl;        \
    } while (false)

#define CHECK_MSTATUS_AND_RETURN(status, value)                                                    \
    do {                                                                                           \
        const MStatus returnedStatus = (status);                                                   \
        CHECK_MSTATUS(returnedStatus);                                                             \
        if (returnedStatus.error())                                                                \
            return value;                                                                          \
    } while (false)

#define CHECK_MSTATUS_AND_RETURN_IT(status)                                                        \
    do {                                                                                           \
        const MStatus returnedStatus = (status);                                                   \
        CHECK_MSTATUS(returnedStatus);                                                             \
        if (returnedStatus.error())                                                                \
            return returnedStatus;                                                                 \
    } while (false)
