// SPDX-License-Identifier: MIT
#include <maya/MString.h>

#include "standin/sdk/utf8.h"

#include <maya/MStringArray.h>

#include <algorithm>
#include <string>

STANDIN_API_OPEN

namespace {

// The API counts in int and knows -1 for nowhere.
int found(size_t position)
{
    return position == std::string::npos ? -1 : static_cast<int>(position);
}

// From one position to another, both included, as far as the text goes.
template <class Text>
Text partOf(const Text &text, int start, int end)
{
    const int first = std::max(start, 0);
    const int last = std::min(end, static_cast<int>(text.size()) - 1);
    return first > last ? Text() : text.substr(first, last - first + 1);
}

// The parts between separators; for narrow and wide text alike.
template <class Text>
MStatus splitInto(const Text &text, typename Text::value_type separator, MStringArray &parts)
{
    parts.clear();
    // An end at the size of the text stands for the missing separator behind the last part.
    for (size_t start = 0; start < text.size();) {
        const size_t end = std::min(text.find(separator, start), text.size());
        if (end > start)
            parts.append(MString(text.substr(start, end - start).c_str()));
        start = end + 1;
    }
    return MS::kSuccess;
}

// Without the locale, in which UTF-8 bytes would be letters of some other alphabet.
char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

// The argument's 1-based number if "^12s" stands at the position, else 0; `length` is its length.
unsigned int placeholderAt(const std::string &text, size_t position, size_t &length)
{
    size_t end = position + 1;
    // The limit keeps a long run of digits from overflowing; no format has a thousand arguments.
    unsigned int number = 0;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9' && number < 1000)
        number = number * 10 + static_cast<unsigned int>(text[end++] - '0');
    length = end + 1 - position;
    return text[position] == '^' && end < text.size() && text[end] == 's' ? number : 0;
}

} // namespace

int MString::index(char character) const
{
    return found(m_text.find(character));
}

int MString::rindex(char character) const
{
    return found(m_text.rfind(character));
}

int MString::indexW(wchar_t character) const
{
    // Decoded for each search: the wide text is not kept up to date.
    return found(standin::wideFromUtf8(m_text).find(character));
}

int MString::rindexW(wchar_t character) const
{
    return found(standin::wideFromUtf8(m_text).rfind(character));
}

MString MString::substring(int start, int end) const
{
    return MString(partOf(m_text, start, end).c_str());
}

MString MString::substringW(int start, int end) const
{
    return MString(partOf(standin::wideFromUtf8(m_text), start, end).c_str());
}

MStatus MString::split(char separator, MStringArray &parts) const
{
    return splitInto(m_text, separator, parts);
}

MStatus MString::splitW(wchar_t separator, MStringArray &parts) const
{
    return splitInto(standin::wideFromUtf8(m_text), separator, parts);
}

MStatus MString::substitute(const MString &oldText, const MString &newText)
{
    if (oldText.length() == 0)
        return MS::kInvalidParameter;
    const std::string wanted = oldText.m_text; // copies: either may be this string
    const std::string replacement = newText.m_text;
    // Goes on behind what was put in, which may hold the text looked for.
    for (size_t at = m_text.find(wanted); at != std::string::npos;
         at = m_text.find(wanted, at + replacement.size()))
        m_text.replace(at, wanted.size(), replacement);
    return MS::kSuccess;
}

MString &MString::toLowerCase()
{
    std::transform(m_text.begin(), m_text.end(), m_text.begin(), lower);
    return *this;
}

MString &MString::toUpperCase()
{
    std::transform(m_text.begin(), m_text.end(), m_text.begin(), upper);
    return *this;
}

MStatus MString::format(const MString &format, const MStringArray &arguments)
{
    const std::string &pattern = format.m_text;
    std::string text;
    for (size_t position = 0; position < pattern.size();) {
        size_t length = 0;
        const unsigned int number = placeholderAt(pattern, position, length);
        if (number > 0 && number <= arguments.length()) {
            text += arguments[number - 1].m_text;
            position += length;
        } else {
            text += pattern[position++];
        }
    }
    m_text = text;
    return MS::kSuccess;
}

MStatus MString::formatWith(const MString &format, const MString arguments[], unsigned int count)
{
    // The name is also that of the parameter.
    return this->format(format, MStringArray(arguments, count));
}

STANDIN_API_CLOSE
