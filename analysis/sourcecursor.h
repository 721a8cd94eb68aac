// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/wordunits.h"

#include <QString>

// A place in a text that is read where it lies, unit by unit (0-based UTF-16 units). The text must
// outlive the cursor. For parsers and highlighters alike; it compares units, without patterns and
// without copies. Searches are case-sensitive, take ASCII, and begin anywhere from 0 on.
class SourceCursor
{
public:
    SourceCursor() = default;
    explicit SourceCursor(const QString &text) : m_data(text.constData()), m_size(int(text.size()))
    {
    }

    int size() const { return m_size; }
    // May be moved outside the text, where there is nothing but NUL.
    int position() const { return m_position; }
    void moveTo(int position) { m_position = position; }
    void advance(int count = 1) { m_position += count; }
    bool isAtEnd() const { return m_position >= m_size; }

    // NUL outside the text.
    ushort at(int index) const { return isInside(index) ? m_data[index].unicode() : ushort(0); }
    ushort current() const { return at(m_position); }
    // White space of any script, line feeds included; false outside the text.
    bool isSpace(int index) const;
    // Part of a word of any script; false outside the text.
    bool isWord(int index) const { return isInside(index) && isWordUnit(m_data, m_size, index); }

    // A copy of what lies between two places inside the text, the end exclusive.
    QString text(int begin, int end) const { return QString(m_data + begin, end - begin); }
    // Valid no longer than the cursor's text, and not to be kept: nothing is copied.
    QString sharedText(int begin, int end) const
    {
        return QString::fromRawData(m_data + begin, end - begin);
    }

    // The first place at or after `from` that holds the character; -1 when there is none.
    int find(char character, int from) const;
    // The same for the first of two characters.
    int findEither(char first, char second, int from) const;
    // The same for a text of one character or more.
    int findText(const char *ascii, int from) const;
    // The first place at or after `from` that is not white space; -1 when there is none.
    int findSolid(int from) const;
    // The line feed at or after `from`, or the end of the text.
    int lineEnd(int from) const;
    // Whether exactly this text lies between `begin` and `end`.
    bool isText(const char *ascii, int begin, int end) const;

    // Whether the text goes on with this one at a place that is not negative.
    bool startsWith(const char *ascii, int at) const;
    // How many backslashes stand directly before `index`.
    int backslashesBefore(int index) const;
    // An odd number of them takes what follows its meaning.
    bool isEscaped(int index) const { return backslashesBefore(index) % 2; }

    // The end of the longest run of such units from `from`; `from` itself when there are none.
    int skipBlanks(int from) const;    // spaces and tabs
    int skipLineSpace(int from) const; // white space but line feeds
    int skipName(int from) const       // a-z A-Z 0-9 _
    {
        while (isNameUnit(at(from)))
            ++from;
        return from;
    }
    int skipPath(int from) const; // names and dots

    // Whether the word stands there between `begin` and `end`, with nothing of a word beside it.
    bool hasWord(const char *ascii, int begin, int end) const;

private:
    bool isInside(int index) const { return unsigned(index) < unsigned(m_size); }
    bool isWordWithin(int index, int begin, int end) const;

    const QChar *m_data = nullptr;
    int m_size = 0;
    int m_position = 0;
};
