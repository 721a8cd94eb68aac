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

// A character that an encoding does not have.
struct MissingCharacter
{
    QString description; // for users
    int line;            // counted from 1
};

// The first that the file's encoding does not have; nothing when it has the whole text.
std::optional<MissingCharacter> missingCharacter(const TextFile &file);

// On failure these return false and put the reason into errorMessage.
//
// Only regular files of up to 256 MB and 4 million lines are read; `file` is unchanged when it
// fails.
bool readTextFile(const QString &path, TextFile *file, QString *errorMessage);
// A failed write, as of a text that the encoding does not hold, leaves the file as it was.
bool writeTextFile(const QString &path, const TextFile &file, QString *errorMessage);
