// SPDX-License-Identifier: MIT
#include <maya/MString.h>

#include "standin/sdk/utf8.h"

#include <maya/MStringArray.h>

#include <algorithm>
#include <cstdio>
#include <ostream>

STANDIN_API_OPEN

namespace {

// The locale's decimal point does not show: the host sets LC_NUMERIC to "C" for the whole process.
std::string numberText(const char *format, int precision, double value)
{
    char buffer[400]; // the longest double in fixed notation has 309 digits
    std::snprintf(buffer, sizeof buffer, format, precision, value);
    return buffer;
}

} // namespace

MString::MString(const char *text)
{
    set(text);
}

MString::MString(const char *text, int length)
{
    set(text, length);
}

MString::MString(const wchar_t *text)
{
    setWChar(text);
}

MString::MString(const wchar_t *text, int length)
{
    setWChar(text, length);
}

const char *MString::asChar(int &length) const
{
    length = static_cast<int>(m_text.size());
    return m_text.c_str();
}

const wchar_t *MString::asWChar() const
{
    // Replaced only when it differs, so that a pointer handed out before stays valid.
    const std::wstring wide = standin::wideFromUtf8(m_text);
    if (wide != m_wideText)
        m_wideText = wide;
    return m_wideText.c_str();
}

const wchar_t *MString::asWChar(int &length) const
{
    // Decodes first; the length is that of what it has kept.
    const wchar_t *text = asWChar();
    length = static_cast<int>(m_wideText.size());
    return text;
}

unsigned int MString::numChars() const
{
    return static_cast<unsigned int>(standin::wideFromUtf8(m_text).size());
}

MStatus MString::set(const char *text)
{
    // A copy first: the text may be part of this string.
    m_text = std::string(text ? text : "");
    return MS::kSuccess;
}

MStatus MString::set(const char *text, int length)
{
    if (!text || length < 0)
        return MS::kInvalidParameter;
    // A copy here as well, for the same reason.
    m_text = std::string(text, static_cast<size_t>(length));
    return MS::kSuccess;
}

// Ten digits, as the language prints a float; whole numbers of that size keep every digit.
MStatus MString::set(double value)
{
    m_text = numberText("%.*g", 10, value);
    return MS::kSuccess;
}

MStatus MString::set(double value, int precision)
{
    m_text = numberText("%.*f", std::clamp(precision, 0, 20), value);
    return MS::kSuccess;
}

MStatus MString::setWChar(const wchar_t *text)
{
    m_text = standin::utf8FromWide(text ? text : L"");
    return MS::kSuccess;
}

MStatus MString::setWChar(const wchar_t *text, int length)
{
    if (!text || length < 0)
        return MS::kInvalidParameter;
    m_text = standin::utf8FromWide(std::wstring(text, static_cast<size_t>(length)));
    return MS::kSuccess;
}

MString &MString::operator=(const char *text)
{
    set(text);
    return *this;
}

MString &MString::operator=(double value)
{
    set(value);
    return *this;
}

MString &MString::operator+=(const MString &other)
{
    m_text += other.m_text;
    return *this;
}

MString &MString::operator+=(const char *text)
{
    // By way of a copy, for the text may be part of this string.
    return *this += MString(text);
}

MString &MString::operator+=(double value)
{
    MString number;
    number.set(value);
    return *this += number;
}

// Each form of adding is the form of appending to a copy.
MString MString::operator+(const MString &other) const
{
    return MString(*this) += other;
}

MString MString::operator+(const char *text) const
{
    return MString(*this) += text;
}

MString MString::operator+(double value) const
{
    return MString(*this) += value;
}

MString operator+(const char *text, const MString &string)
{
    return MString(text) += string;
}

std::ostream &operator<<(std::ostream &stream, const MString &string)
{
    return stream << string.asUTF8();
}

STANDIN_API_CLOSE
