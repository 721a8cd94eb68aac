// SPDX-License-Identifier: MIT
#include "standin/python/values.h"

#include "standin/python/pycompat.h"

#include <climits>

namespace standin {
namespace {

PyRef toPython(int value)
{
    return integerObject(value);
}

PyRef toPython(double value)
{
    return PyRef(PyFloat_FromDouble(value));
}

PyRef toPython(const std::string &value)
{
    return textObject(value);
}

// Declared first: a list of vectors is a list of lists.
template <typename T>
PyRef listOf(const std::vector<T> &elements);

PyRef toPython(const mel::Vector &value)
{
    return listOf(std::vector<double>{value.x, value.y, value.z});
}

template <typename T>
PyRef listOf(const std::vector<T> &elements)
{
    PyRef list(PyList_New(static_cast<Py_ssize_t>(elements.size())));
    if (!list)
        return list;
    Py_ssize_t index = 0;
    for (const T &element : elements) {
        PyRef item = toPython(element);
        if (!item)
            return PyRef();
        // Takes over the reference; the list is new and has no item there to give back.
        PyList_SET_ITEM(list.get(), index++, item.release());
    }
    return list;
}

struct ToPython
{
    // Instead of a chain of tests: a type of value without a form here does not compile.
    PyRef operator()(std::monostate) const { return PyRef::borrowed(Py_None); }
    PyRef operator()(const mel::Matrix &value) const { return listOf(value.elements); }
    template <typename T>
    PyRef operator()(const mel::Array<T> &value) const
    {
        return listOf(value.elements());
    }
    template <typename T>
    PyRef operator()(const T &value) const
    {
        return toPython(value);
    }
};

std::optional<int> smallInteger(PyObject *object)
{
    if (!isInteger(object))
        return std::nullopt;
    int overflow = 0;
    const long long number = PyLong_AsLongLongAndOverflow(object, &overflow);
    // MEL's ints have 32 bits.
    if (overflow != 0 || number < INT_MIN || number > INT_MAX)
        return std::nullopt;
    return static_cast<int>(number);
}

// Booleans too, which are ints to Python.
bool isNumber(PyObject *object)
{
    return PyFloat_Check(object) || smallInteger(object);
}

double numberOf(PyObject *object)
{
    // Only after isNumber(), so the int is there.
    return PyFloat_Check(object) ? PyFloat_AsDouble(object) : *smallInteger(object);
}

// The elements as T when `accepts` each of them.
template <typename T, typename Accepts, typename Convert>
std::optional<std::vector<T>> uniform(PyObject *sequence, Accepts accepts, Convert convert)
{
    const Py_ssize_t size = PySequence_Fast_GET_SIZE(sequence);
    std::vector<T> elements;
    for (Py_ssize_t i = 0; i < size; ++i) {
        PyObject *item = PySequence_Fast_GET_ITEM(sequence, i);
        if (!accepts(item))
            return std::nullopt;
        elements.push_back(convert(item));
    }
    return elements;
}

std::optional<mel::Value> stringArray(PyObject *sequence)
{
    std::vector<std::string> texts;
    // The size is asked anew each time: the __str__ of an element may change the list.
    for (Py_ssize_t i = 0; i < PySequence_Fast_GET_SIZE(sequence); ++i) {
        const PyRef item = PyRef::borrowed(PySequence_Fast_GET_ITEM(sequence, i));
        std::optional<std::string> text = strText(item.get());
        if (!text)
            return std::nullopt;
        texts.push_back(std::move(*text));
    }
    return texts;
}

std::optional<mel::Value> toArray(PyObject *sequence)
{
    // An array of some type has to be chosen; an empty one converts to any other.
    if (PySequence_Fast_GET_SIZE(sequence) == 0)
        return mel::StringArray();
    const auto isSmall = [](PyObject *item) { return smallInteger(item).has_value(); };
    if (auto integers =
            uniform<int>(sequence, isSmall, [](PyObject *item) { return *smallInteger(item); }))
        return *integers;
    if (auto numbers = uniform<double>(sequence, isNumber, numberOf))
        return *numbers;
    return stringArray(sequence);
}

} // namespace

PyRef toPython(const mel::Value &value)
{
    return std::visit(ToPython(), value);
}

bool readText(PyObject *argument, std::string &text)
{
    if (!isText(argument)) {
        PyErr_Format(PyExc_TypeError, "argument must be str, not %s", Py_TYPE(argument)->tp_name);
        return false;
    }
    text = toUtf8(argument);
    return true;
}

PyRef textObject(const std::string &utf8)
{
    return PyRef(
        PyUnicode_DecodeUTF8(utf8.data(), static_cast<Py_ssize_t>(utf8.size()), "replace"));
}

std::string toUtf8(PyObject *text)
{
    // Byte strings, as Python 2 has them, are taken for UTF-8.
    PyRef bytes = PyRef::borrowed(text);
    if (PyUnicode_Check(text))
        bytes = PyRef(PyUnicode_AsEncodedString(text, "utf-8", "backslashreplace"));
    if (bytes && PyBytes_Check(bytes.get()))
        return {PyBytes_AS_STRING(bytes.get()), static_cast<size_t>(PyBytes_GET_SIZE(bytes.get()))};
    // No text at all, or no memory: rather an empty text than a second error.
    PyErr_Clear();
    return {};
}

std::optional<std::string> strText(PyObject *object)
{
    const PyRef text(isText(object) ? PyRef::borrowed(object) : PyRef(PyObject_Str(object)));
    if (!text)
        return std::nullopt;
    return toUtf8(text.get());
}

std::optional<mel::Value> toMel(PyObject *object)
{
    if (object == Py_None)
        return mel::Value();
    if (const std::optional<int> number = smallInteger(object))
        return *number;
    if (PyFloat_Check(object))
        return PyFloat_AsDouble(object);
    if (PyList_Check(object) || PyTuple_Check(object))
        return toArray(object);
    std::optional<std::string> text = strText(object);
    if (!text)
        return std::nullopt;
    return std::move(*text);
}

} // namespace standin
