// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>

#include <iostream>

STANDIN_API_OPEN

class MString;

// The outcome of a call; a value. Calls that return something else take a pointer to one, which may
// be null. Of the codes this stand-in gives kSuccess; kInvalidParameter for arguments that cannot
// be meant, such as an index beyond the end; and kFailure for everything else.
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

    // Success.
    MStatus() = default;
    // Deliberate: implicit, so that functions can return a code.
    MStatus(MStatusCode code) : m_code(code) {}

    // True on success, the other way round than error().
    operator bool() const { return m_code == kSuccess; }
    bool error() const { return m_code != kSuccess; }
    MStatusCode statusCode() const { return m_code; }
    void clear() { m_code = kSuccess; }

    // The code's name in parentheses and a sentence; for messages, not for comparing, since the
    // sentences are not the application's.
    MString errorString() const;
    // Writes the error string to standard error, headed by the text.
    void perror(const char *heading) const;
    void perror(const MString &heading) const;

    // In both orders: without them a code on the left would be compared with the status as a bool.
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

// The short spelling, as in MS::kSuccess.
typedef MStatus MS;

STANDIN_API_CLOSE

// Writes a failed status to standard error with the place in the source, and goes on.
#define CHECK_MSTATUS(status)                                                                      \
    do {                                                                                           \
        const MStatus checkedStatus = (status);                                                    \
        if (checkedStatus.error())                                                                 \
            std::cerr << __FILE__ << ":" << __LINE__ << ": " << checkedStatus << std::endl;        \
    } while (false)

// The same, and returns the value from the calling function.
#define CHECK_MSTATUS_AND_RETURN(status, value)                                                    \
    do {                                                                                           \
        const MStatus returnedStatus = (status);                                                   \
        CHECK_MSTATUS(returnedStatus);                                                             \
        if (returnedStatus.error())                                                                \
            return value;                                                                          \
    } while (false)

// The same, returning the status. The status is evaluated once in all three.
#define CHECK_MSTATUS_AND_RETURN_IT(status)                                                        \
    do {                                                                                           \
        const MStatus returnedStatus = (status);                                                   \
        CHECK_MSTATUS(returnedStatus);                                                             \
        if (returnedStatus.error())                                                                \
            return returnedStatus;                                                                 \
    } while (false)
