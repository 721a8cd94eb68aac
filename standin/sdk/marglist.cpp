// SPDX-License-Identifier: MIT
#include <maya/MArgList.h>

#include "standin/sdk/standinaccess.h"

#include <string>

using standin::setStatus;

STANDIN_API_OPEN

namespace {

// The value at the index, or a default; `get` of the list says which.
template <class Item>
Item itemAt(const MArgList &list, unsigned int index, MStatus *status)
{
    // Stays the default on failure, since get() leaves it alone.
    Item value = Item();
    setStatus(status, list.get(index, value).statusCode());
    return value;
}

// The words that the language takes for a switch, and any number.
bool readsAs(const MString &word, bool &value)
{
    static const char *const yes[] = {"1", "on", "true", "yes"};
    static const char *const no[] = {"0", "off", "false", "no"};
    for (size_t i = 0; i < sizeof yes / sizeof *yes; ++i) {
        // Exactly as written: the language knows these words in lower case only.
        value = word == yes[i];
        if (value || word == no[i])
            return true;
    }
    value = word.asDouble() != 0;
    return word.isDouble();
}

bool readsAs(const MString &word, int &value)
{
    // A fraction is cut off, as the language does when it converts a float.
    // Compared as doubles, which hold the limits exactly; 2147483647.5 still cuts off to an int.
    const double number = word.asDouble();
    if (!word.isDouble() || number <= INT_MIN - 1.0 || number >= INT_MAX + 1.0)
        return false;
    value = static_cast<int>(number);
    return true;
}

bool readsAs(const MString &word, double &value)
{
    value = word.asDouble();
    return word.isDouble();
}

bool readsAs(const MString &word, MString &value)
{
    value = word;
    return true;
}

// Leaves the value alone unless the word reads as one.
template <class Item>
MStatus readWord(const std::vector<MString> &words, unsigned int index, Item &value)
{
    Item read = Item();
    if (index >= words.size() || !readsAs(words[index], read))
        return MS::kInvalidParameter;
    value = read;
    return MS::kSuccess;
}

} // namespace

unsigned int MArgList::length(MStatus *ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return static_cast<unsigned int>(m_words.size());
}

bool MArgList::asBool(unsigned int index, MStatus *ReturnStatus) const
{
    return itemAt<bool>(*this, index, ReturnStatus);
}

int MArgList::asInt(unsigned int index, MStatus *ReturnStatus) const
{
    return itemAt<int>(*this, index, ReturnStatus);
}

double MArgList::asDouble(unsigned int index, MStatus *ReturnStatus) const
{
    return itemAt<double>(*this, index, ReturnStatus);
}

MString MArgList::asString(unsigned int index, MStatus *ReturnStatus) const
{
    return itemAt<MString>(*this, index, ReturnStatus);
}

MStatus MArgList::get(unsigned int index, bool &value) const
{
    return readWord(m_words, index, value);
}

MStatus MArgList::get(unsigned int index, int &value) const
{
    return readWord(m_words, index, value);
}

MStatus MArgList::get(unsigned int index, double &value) const
{
    return readWord(m_words, index, value);
}

MStatus MArgList::get(unsigned int index, MString &value) const
{
    return readWord(m_words, index, value);
}

unsigned int MArgList::flagIndex(const char *shortFlag, const char *longFlag) const
{
    // Compared without the dash, as callers give the names either way.
    const std::string names[] = {standin::withoutDash(shortFlag ? shortFlag : ""),
                                 standin::withoutDash(longFlag ? longFlag : "")};
    for (unsigned int i = 0; i < m_words.size(); ++i) {
        const std::string word = m_words[i].asUTF8();
        for (const std::string &name : names) {
            if (!name.empty() && word == "-" + name)
                return i;
        }
    }
    return kInvalidArgIndex;
}

// Words are kept as text, as they were typed; what a number was is decided when it is asked for.
MStatus MArgList::addArg(bool value)
{
    return addArg(value ? 1 : 0);
}

MStatus MArgList::addArg(int value)
{
    return addArg(MString(std::to_string(value).c_str()));
}

MStatus MArgList::addArg(double value)
{
    MString text;
    // Ten digits, like every number that becomes text.
    text.set(value);
    return addArg(text);
}

MStatus MArgList::addArg(const MString &value)
{
    m_words.push_back(value);
    return MS::kSuccess;
}

STANDIN_API_CLOSE
