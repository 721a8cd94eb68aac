// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

// The text of a file together with what is needed to write it back unchanged: its line ends and
// its byte-order mark. Lines of the text end in "\n".
struct TextFile
{
    QString text;
    bool carriageReturns = false;
    bool byteOrderMark = false;
};

// Decodes UTF-8. Returns false for bytes that are not valid UTF-8: written back, they would differ.
bool decodeText(const QByteArray &bytes, TextFile *file);
QByteArray encodeText(const TextFile &file);

// On failure these return false and put the reason into errorMessage; a failed read leaves file
// unchanged.
bool readTextFile(const QString &path, TextFile *file, QString *errorMessage);
bool writeTextFile(const QString &path, const TextFile &file, QString *errorMessage);
