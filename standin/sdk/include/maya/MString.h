// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MStatus.h>

#include <iosfwd>
#include <string>

STANDIN_API_OPEN

class MStringArray;

// Text. It is held as UTF-8, and the locale's encoding, in which asChar() and length() count, is
// taken to be UTF-8 too; the calls ending in W and numChars() count characters.
class STANDIN_API MString
{
public:
    MString() = default;
    MString(const char *text);
    MString(const char *text, int length);
    MString(const wchar_t *text);
    MString(const wchar_t *text, int length);

    // The pointers stay valid until the string changes or dies.
    const char *asChar() const { return m_text.c_str(); }
    const char *asChar(int &length) const;
    const char *asUTF8() const { return m_text.c_str(); }
    const char *asUTF8(int &length) const { return asChar(length); }
    const wchar_t *asWChar() const;
    const wchar_t *asWChar(int &length) const;

    // 0 unless the text begins with a number.
    int asInt() const;
    short asShort() const;
    unsigned int asUnsigned() const;
    float asFloat() const;
    double asDouble() const;
    // Whether the whole text is such a number.
    bool isInt() const;
    bool isShort() const;
    bool isUnsigned() const;
    bool isFloat() const;
    bool isDouble() const;

    unsigned int length() const { return static_cast<unsigned int>(m_text.size()); }
    unsigned int numChars() const;

    MStatus set(const char *text);
    MStatus set(const char *text, int length);
    MStatus set(double value);
    MStatus set(double value, int precision);
    MStatus setUTF8(const char *text) { return set(text); }
    MStatus setWChar(const wchar_t *text);
    MStatus setWChar(const wchar_t *text, int length);
    void clear() { m_text.clear(); }

    // Position of the first or last such character, -1 when there is none.
    int index(char character) const;
    int indexW(wchar_t character) const;
    int rindex(char character) const;
    int rindexW(wchar_t character) const;
    // Both ends belong to the part; positions outside the text are cut off.
    MString substring(int start, int end) const;
    MString substringW(int start, int end) const;
    // Empty parts are left out.
    MStatus split(char separator, MStringArray &parts) const;
    MStatus splitW(wchar_t separator, MStringArray &parts) const;

    // Every occurrence is replaced.
    MStatus substitute(const MString &oldText, const MString &newText);
    MString &toLowerCase(); // ASCII letters
    MString &toUpperCase();

    // Replaces ^1s, ^2s, ... in the format; a number without an argument stays as it is.
    MStatus format(const MString &format, const MStringArray &arguments);
    // Up to ten arguments.
    template <class... More>
    MStatus format(const MString &format, const MString &arg1, const More &...more)
    {
        static_assert(sizeof...(more) < 10, "the API takes ten arguments at most");
        const MString arguments[] = {arg1, MString(more)...};
        return formatWith(format, arguments, 1 + sizeof...(more));
    }

    MString &operator=(const char *text);
    MString &operator=(double value);
    MString &operator+=(const MString &other);
    MString &operator+=(const char *text);
    MString &operator+=(double value);
    MString operator+(const MString &other) const;
    MString operator+(const char *text) const;
    MString operator+(double value) const;
    bool operator==(const MString &other) const { return m_text == other.m_text; }
    bool operator!=(const MString &other) const { return m_text != other.m_text; }
    bool operator==(const char *text) const { return m_text == (text ? text : ""); }
    bool operator!=(const char *text) const { return !(*this == text); }

private:
    MStatus formatWith(const MString &format, const MString arguments[], unsigned int count);

    std::string m_text;
    mutable std::wstring m_wideText; // what asWChar() last returned
};

STANDIN_API MString operator+(const char *text, const MString &string);
STANDIN_API std::ostream &operator<<(std::ostream &stream, const MString &string);

STANDIN_API_CLOSE
