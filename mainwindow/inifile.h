// SPDX-License-Identifier: MIT
// The editor's INI files, which a full disk, a crash or a hand may have damaged, and which must not
// get worse by being written.
#pragma once

#include <functional>

class QSettings;
class QString;

// Lets `use` look at the file's values; there are none when it is missing or no INI file at all.
// What is damaged is kept beside it as "NAME.damaged-1" and so on, the last five; of a file with
// single broken lines the others are used. Returns what the user should be told of this, a
// sentence, else an empty text.
QString readIniFile(const QString &path, const std::function<void(QSettings &)> &use);

// Lets `set` change values; the others stay. The file then has the new values or, on failure, the
// old ones; it is not touched when they are the same. Returns the reason of a failure, else an
// empty text.
QString writeIniFile(const QString &path, const std::function<void(QSettings &)> &set);

// Keeps a copy of a file that a later version of the editor has written as "NAME.later-version",
// unless there is one. Returns what the user should be told, a sentence.
QString keepLaterVersion(const QString &path);
