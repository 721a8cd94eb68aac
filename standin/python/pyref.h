// SPDX-License-Identifier: MIT
#pragma once

#include <Python.h>

#include <utility>

namespace standin {

// Owns one reference to a Python object, or none. The GIL is held wherever one is made or dropped.
// Move only: copying would count references nobody sees. Null after a failure, with the exception
// set by whoever failed.
class PyRef
{
public:
    PyRef() = default;
    // Takes over a new reference, as most calls of Python return one.
    explicit PyRef(PyObject *owned) : m_object(owned) {}
    // Adds a reference of its own; null stays null.
    static PyRef borrowed(PyObject *object)
    {
        Py_XINCREF(object);
        return PyRef(object);
    }
    PyRef(PyRef &&other) noexcept : m_object(other.release()) {}
    // The old object goes with the other reference.
    PyRef &operator=(PyRef &&other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~PyRef() { Py_XDECREF(m_object); }

    PyObject *get() const { return m_object; }
    PyObject *orNone() const { return m_object ? m_object : Py_None; } // borrowed
    PyObject *release() { return std::exchange(m_object, nullptr); }   // the caller owns it now
    explicit operator bool() const { return m_object != nullptr; }

private:
    PyObject *m_object = nullptr;
};

} // namespace standin
