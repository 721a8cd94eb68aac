// SPDX-License-Identifier: MIT
#pragma once

#include <Python.h>

namespace standin {

// Holds Python's global lock for a scope; may be nested, and used on any thread. Waits for the
// lock, so the host must not hold a lock of its own that Python code may want.
class GilLock
{
public:
    GilLock() : m_state(PyGILState_Ensure()) {}
    ~GilLock() { PyGILState_Release(m_state); }
    GilLock(const GilLock &) = delete;
    GilLock &operator=(const GilLock &) = delete;

private:
    PyGILState_STATE m_state;
};

// Lets other Python threads run while the host works: the host may well open a dialog. Only with
// the lock held; no Python object may be touched until the scope ends.
class GilRelease
{
public:
    GilRelease() : m_thread(PyEval_SaveThread()) {}
    ~GilRelease() { PyEval_RestoreThread(m_thread); }
    GilRelease(const GilRelease &) = delete;
    GilRelease &operator=(const GilRelease &) = delete;

private:
    PyThreadState *m_thread;
};

} // namespace standin
