// SPDX-License-Identifier: MIT
#include "standin/python/commandwords.h"

#include "standin/python/pycall.h"
#include "standin/python/pycompat.h"
#include "standin/python/values.h"

#include <string>

namespace standin {
namespace {

bool isSequence(PyObject *object)
{
    return PyList_Check(object) || PyTuple_Check(object);
}

// By either name, as keywords may be; null for a flag that the command does not have.
const mel::Flag *findFlag(const mel::Command &command, const std::string &name)
{
    for (const mel::Flag &flag : command.flags) {
        if (flag.shortName == name || flag.longName == name)
            return &flag;
    }
    return nullptr;
}

// The two words that say what the flags of a call are for.
struct Mode
{
    const char *shortName;
    const char *longName;
    const char *word;
};

const Mode queryMode = {"q", "query", "-q"};
const Mode editMode = {"e", "edit", "-e"};

// A command's own flag may have the name of a mode, as -e of scriptJob.
bool isMode(const mel::Command &command, const Mode &mode, const std::string &name)
{
    return (name == mode.shortName || name == mode.longName) && !findFlag(command, name);
}

// What the keywords give for a mode, borrowed; null when they do not ask for it.
PyObject *modeValue(const mel::Command &command, PyObject *keywords, const Mode &mode)
{
    for (const char *name : {mode.shortName, mode.longName}) {
        PyObject *value = keywords ? PyDict_GetItemString(keywords, name) : nullptr;
        if (value && isMode(command, mode, name) && (isText(value) || PyObject_IsTrue(value) == 1))
            return value;
    }
    return nullptr;
}

// Whether the keywords say which language the call's scripts are in.
bool namesLanguage(PyObject *keywords)
{
    return keywords && (PyDict_GetItemString(keywords, "sourceType") != nullptr ||
                        PyDict_GetItemString(keywords, "stp") != nullptr);
}

// A plug-in command without a syntax of its own takes what it is given.
bool acceptsAnyFlag(const mel::Command &command)
{
    return command.rawWords && command.flags.empty();
}

// Collects the words of one call. Each function returns false with an exception set.
class WordList
{
public:
    WordList(const mel::Command &command, PyObject *keywords)
        : m_command(command), m_query(modeValue(command, keywords, queryMode) != nullptr),
          m_namesLanguage(namesLanguage(keywords))
    {
    }

    bool addFlag(const std::string &name, PyObject *value);
    bool add(PyObject *value, mel::ArgumentKind kind = mel::ArgumentKind::String);
    bool addMode(const Mode &mode, PyObject *value);
    std::vector<mel::Value> take() { return std::move(m_words); }

private:
    bool addUntypedFlag(const std::string &name, PyObject *value);
    bool addUses(const mel::Flag &flag, PyObject *values);
    bool addUse(const mel::Flag &flag, PyObject *value);
    bool addScript(PyObject *value);

    const mel::Command &m_command;
    const bool m_query;         // known beforehand: it changes what flags take
    const bool m_namesLanguage; // the call says in which language its scripts are
    std::vector<mel::Value> m_words;
};

// By the long name; some flags have a short one only.
mel::Value flagWord(const mel::Flag &flag)
{
    return "-" + (flag.longName.empty() ? flag.shortName : flag.longName);
}

// cmds.f("x", q=True), or cmds.optionVar(q="x") where the object follows the mode
bool WordList::addMode(const Mode &mode, PyObject *value)
{
    if (!value)
        return true;
    m_words.emplace_back(std::string(mode.word));
    return !isText(value) || add(value);
}

bool WordList::addFlag(const std::string &name, PyObject *value)
{
    // Nothing to check against; its own syntax, or doIt(), decides.
    if (acceptsAnyFlag(m_command))
        return addUntypedFlag(name, value);
    const mel::Flag *flag = findFlag(m_command, name);
    if (!flag) {
        PyErr_Format(PyExc_TypeError, "Invalid flag '%s'", name.c_str());
        return false;
    }
    // In a query the flags are named only, as in title=True, unless they need to know more.
    if (flag->arguments.empty() || (m_query && PyBool_Check(value))) {
        // -1 is an exception: the truth of an object is code of its own.
        const int wanted = PyObject_IsTrue(value);
        if (wanted == 1)
            m_words.push_back(flagWord(*flag));
        return wanted >= 0;
    }
    return flag->multiUse && isSequence(value) ? addUses(*flag, value) : addUse(*flag, value);
}

bool WordList::addUntypedFlag(const std::string &name, PyObject *value)
{
    // A switch that is off, as far as anybody can tell here.
    if (value == Py_False)
        return true;
    m_words.emplace_back("-" + name);
    return value == Py_True || add(value);
}

// cmds.f(flag=["a", "b"]) or, for a flag of two arguments, cmds.f(flag=[("a", 1), ("b", 2)])
bool WordList::addUses(const mel::Flag &flag, PyObject *values)
{
    const Py_ssize_t size = PySequence_Fast_GET_SIZE(values);
    const bool nested = size > 0 && isSequence(PySequence_Fast_GET_ITEM(values, 0));
    if (flag.arguments.size() > 1 && !nested)
        return addUse(flag, values);
    // The size is asked anew each time, and the item owned: converting it may run code that changes
    // the list.
    for (Py_ssize_t i = 0; i < PySequence_Fast_GET_SIZE(values); ++i) {
        const PyRef item = PyRef::borrowed(PySequence_Fast_GET_ITEM(values, i));
        if (!addUse(flag, item.get()))
            return false;
    }
    return true;
}

bool WordList::addUse(const mel::Flag &flag, PyObject *value)
{
    m_words.push_back(flagWord(flag));
    if (!isSequence(value))
        return add(value, flag.arguments.front());
    for (Py_ssize_t i = 0; i < PySequence_Fast_GET_SIZE(value); ++i) {
        const PyRef item = PyRef::borrowed(PySequence_Fast_GET_ITEM(value, i));
        const size_t argument = static_cast<size_t>(i);
        // More values than the flag takes are passed on all the same: the command decides.
        const bool typed = argument < flag.arguments.size();
        if (!add(item.get(), typed ? flag.arguments[argument] : mel::ArgumentKind::String))
            return false;
    }
    return true;
}

bool WordList::add(PyObject *value, mel::ArgumentKind kind)
{
    if (kind == mel::ArgumentKind::Script)
        return addScript(value);
    std::optional<mel::Value> word = toMel(value);
    if (!word)
        return false;
    // Left out silently, the words after it would slip into its place.
    if (mel::isVoid(*word)) {
        PyErr_SetString(PyExc_TypeError, "None is no argument of a command");
        return false;
    }
    m_words.push_back(std::move(*word));
    return true;
}

// Scripts given from Python are Python, as text or as something to call. With a language of its own
// the element runs the text as it is.
bool WordList::addScript(PyObject *value)
{
    if (m_namesLanguage && isText(value))
        return add(value);
    const PyRef command = textObject(m_command.name);
    const PyRef script = command ? callUtils("_melScript", {command.get(), value}) : PyRef();
    return script && add(script.get());
}

bool addFlags(const mel::Command &command, PyObject *keywords, WordList &words)
{
    PyObject *key = nullptr;
    PyObject *value = nullptr;
    Py_ssize_t position = 0;
    // In the order in which the call gives them, where Python keeps it. References are borrowed.
    while (keywords && PyDict_Next(keywords, &position, &key, &value)) {
        const std::string name = toUtf8(key);
        if (isMode(command, queryMode, name) || isMode(command, editMode, name))
            continue;
        if (!words.addFlag(name, value))
            return false;
    }
    return true;
}

bool addObjects(PyObject *arguments, WordList &words)
{
    for (Py_ssize_t i = 0; i < PyTuple_GET_SIZE(arguments); ++i) {
        if (!words.add(PyTuple_GET_ITEM(arguments, i)))
            return false;
    }
    return true;
}

} // namespace

std::optional<std::vector<mel::Value>> commandWords(const mel::Command &command,
                                                    PyObject *arguments, PyObject *keywords)
{
    // In the order of a script's line: modes, flags, objects.
    PyObject *query = modeValue(command, keywords, queryMode);
    PyObject *edit = modeValue(command, keywords, editMode);
    WordList words(command, keywords);
    if (words.addMode(queryMode, query) && words.addMode(editMode, edit) &&
        addFlags(command, keywords, words) && addObjects(arguments, words))
        return words.take();
    return std::nullopt;
}

bool answersYesOrNo(const mel::Command &command, PyObject *keywords)
{
    const bool query = modeValue(command, keywords, queryMode) != nullptr;
    PyObject *key = nullptr;
    PyObject *value = nullptr;
    Py_ssize_t position = 0;
    while (keywords && PyDict_Next(keywords, &position, &key, &value)) {
        const mel::Flag *flag = findFlag(command, toUtf8(key));
        if (!flag)
            continue;
        const bool boolean =
            flag->arguments.size() == 1 && flag->arguments[0] == mel::ArgumentKind::Boolean;
        if (flag->longName == "exists" || (query && boolean))
            return true;
    }
    return false;
}

} // namespace standin
