// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MStatus.h>

#include <iosfwd>
#include <string>

STANDIN_API_OPEN

class MStringArray;

// Text; a value. It is held as UTF-8, and the locale's encoding, in which asChar() and length()
// count, is taken to be UTF-8 too; the application may have another locale, so text of the
// user's goes through the UTF-8 calls. The calls ending in W and numChars() count characters: units
// of wchar_t. Bytes that are not UTF-8 are kept, and become U+FFFD in wide text. Positions are
// 0-based.
class STANDIN_API MString
{
public:
    MString() = default;
    // A null text is an empty one. Lengths are in bytes or wide units; a negative one gives no
    // text.
    MString(const char *text);
    MString(const char *text, int length);
    MString(const wchar_t *text);
    MString(const wchar_t *text, int length);

    // The pointers stay valid until the string changes or dies. Lengths leave the closing null out.
    const char *asChar() const { return m_text.c_str(); }
    const char *asChar(int &length) const;
    const char *asUTF8() const { return m_text.c_str(); }
    const char *asUTF8(int &length) const { return asChar(length); }
    const wchar_t *asWChar() const;
    const wchar_t *asWChar(int &length) const;

    // The number at the beginning of the text, behind blanks; 0 when there is none.
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

    // In bytes. Early releases have no isEmpty(), so there is none.
    unsigned int length() const { return static_cast<unsigned int>(m_text.size()); }
    // In wide units; has to decode the whole text.
    unsigned int numChars() const;

    // Together with a length, a null text or a negative length is kInvalidParameter and changes
    // nothing; without one, a null text is an empty one.
    MStatus set(const char *text);
    MStatus set(const char *text, int length);
    // Ten significant digits at most, without closing zeros.
    MStatus set(double value);
    // Fixed notation with so many digits behind the point, 20 at most.
    MStatus set(double value, int precision);
    MStatus setUTF8(const char *text) { return set(text); }
    MStatus setWChar(const wchar_t *text);
    MStatus setWChar(const wchar_t *text, int length);
    void clear() { m_text.clear(); }

    // Position of the first or last such character, in bytes or wide units; -1 when there is none.
    int index(char character) const;
    int indexW(wchar_t character) const;
    int rindex(char character) const;
    int rindexW(wchar_t character) const;
    // Both ends belong to the part; positions outside the text are cut off. By bytes, so a
    // character may be cut in the middle; the wide form does not.
    MString substring(int start, int end) const;
    MString substringW(int start, int end) const;
    // Replaces the array. Empty parts are left out.
    MStatus split(char separator, MStringArray &parts) const;
    MStatus splitW(wchar_t separator, MStringArray &parts) const;

    // Every occurrence is replaced, from left to right; an empty old text is kInvalidParameter.
    MStatus substitute(const MString &oldText, const MString &newText);
    MString &toLowerCase(); // ASCII letters
    MString &toUpperCase();

    // Replaces ^1s, ^2s, ... in the format; a number without an argument stays as it is. The string
    // may be its own format.
    MStatus format(const MString &format, const MStringArray &arguments);
    // Up to ten arguments.
    template <class... More>
    MStatus format(const MString &format, const MString &arg1, const More &...more)
    {
        static_assert(sizeof...(more) < 10, "the API takes ten arguments at most");
        const MString arguments[] = {arg1, MString(more)...};
        return formatWith(format, arguments, 1 + sizeof...(more));
    }

    // Numbers are added as set(double) writes them; an int comes this way too, without a fraction.
    MString &operator=(const char *text);
    MString &operator=(double value);
    MString &operator+=(const MString &other);
    MString &operator+=(const char *text);
    MString &operator+=(double value);
    MString operator+(const MString &other) const;
    MString operator+(const char *text) const;
    MString operator+(double value) const;
    // Byte by byte; a null text equals an empty one.
    bool operator==(const MString &other) const { return m_text == other.m_text; }
    bool operator!=(const MString &other) const { return m_text != other.m_text; }
    bool operator==(const char *text) const { return m_text == (text ? text : ""); }
    bool operator!=(const char *text) const { return !(*this == text); }

private:
    friend struct ::StandinAccess;

    MStatus formatWith(const MString &format, const MString arguments[], unsigned int count);

    // UTF-8; may hold null bytes when it was set with a length.
    std::string m_text;
    mutable std::wstring m_wideText; // what asWChar() last returned
};

// For a literal on the left.
STANDIN_API MString operator+(const char *text, const MString &string);
STANDIN_API std::ostream &operator<<(std::ostream &stream, const MString &string);

STANDIN_API_CLOSE
