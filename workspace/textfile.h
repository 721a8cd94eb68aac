// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/textencoding.h"

#include <QString>

#include <optional>

// The text of a file, with its line ends as they are, and the encoding to write it back in.
// Read and written without a change it gives the same bytes.
struct TextFile
{
    QString text;
    TextEncoding encoding = TextEncoding::Utf8;
};

// Tells bytes from others: no two files that anybody meets have the same.
struct Fingerprint
{
    qint64 size = 0;
    quint64 hash = 0;
};

// A character that an encoding does not have.
struct MissingCharacter
{
    QString description; // for users
    int line;            // counted from 1
};

// The first that the file's encoding does not have; nothing when it has the whole text.
std::optional<MissingCharacter> missingCharacter(const TextFile &file);

// On failure these return false and put the reason into errorMessage. The fingerprint is that of
// the bytes that were read or written.
//
// Only regular files of up to 256 MB and 4 million lines are read; `file` is unchanged when it
// fails.
bool readTextFile(const QString &path, TextFile *file, QString *errorMessage,
                  Fingerprint *fingerprint = nullptr);
// The same for those who want the text later, if ever: any bytes are a text in some encoding.
bool readTextBytes(const QString &path, QByteArray *bytes, QString *errorMessage,
                   Fingerprint *fingerprint = nullptr);
// A failed write, as of a text that the encoding does not hold, leaves the file as it was.
bool writeTextFile(const QString &path, const TextFile &file, QString *errorMessage,
                   Fingerprint *fingerprint = nullptr);

// Whether there is a file that can be read and has other bytes.
bool hasOtherBytes(const QString &path, const Fingerprint &fingerprint);
// Nothing when it cannot be read.
std::optional<Fingerprint> fingerprintOfFile(const QString &path);
