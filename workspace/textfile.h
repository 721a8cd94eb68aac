// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

// The text of a file together with what is needed to write it back unchanged: its line ends and
// its byte-order mark. Lines of the text end in "\n". A file that mixes line ends takes the kind of
// its first line.
struct TextFile
{
    QString text;
    bool carriageReturns = false; // lines end in "\r\n"
    bool byteOrderMark = false;   // that of UTF-8 stands first
};

// Decodes UTF-8. Returns false for bytes that are not valid UTF-8: written back, they would differ.
// `file` is unchanged then.
bool decodeText(const QByteArray &bytes, TextFile *file);
// The bytes of the whole file, mark included.
QByteArray encodeText(const TextFile &file);

// On failure these return false and put the reason into errorMessage; a failed read leaves file
// unchanged. A failed write may leave a file that is cut short.
bool readTextFile(const QString &path, TextFile *file, QString *errorMessage);
bool writeTextFile(const QString &path, const TextFile &file, QString *errorMessage);
