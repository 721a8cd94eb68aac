// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

// How a text is written as bytes. UTF-16 and UTF-32 begin with a byte-order mark, which is no part
// of the text.
enum class TextEncoding {
    MarkedUtf8,
    Utf32LittleEndian,
    Utf32BigEndian,
    Utf16LittleEndian,
    Utf16BigEndian,
    Utf8,
    Locale,
    Latin1
};

// Takes the first encoding, in the order above, that gives exactly these bytes back; Latin-1 takes
// any.
TextEncoding decodeText(const QByteArray &bytes, QString *text);

// Returns the index of the first character that the encoding does not have, or -1 when `bytes` has
// the whole text.
int encodeText(const QString &text, TextEncoding encoding, QByteArray *bytes);

// Whether it has all characters. Of these, only UTF-16 has halves of surrogate pairs as well.
bool isUnicode(TextEncoding encoding);

// As users know it.
QString encodingName(TextEncoding encoding);
