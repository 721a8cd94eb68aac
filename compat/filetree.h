// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

// Copying and deleting files with all that is below them.
namespace compat {

// Asked before each file, and in the midst of copying a long one; false ends the operation there,
// which then fails without a message.
using GoesOn = std::function<bool()>;

// Copies a file, a link or a folder with all that it holds; links are copied as links. Fails where
// there is something of the new name, and leaves nothing behind then.
bool copyTree(const QString &path, const QString &newPath, QString *errorMessage,
              const GoesOn &goesOn = GoesOn());

// Deletes for good a file, a link or a folder with all that it holds; what links lead to stays.
// What was deleted before a failure is gone.
bool removeTree(const QString &path, QString *errorMessage, const GoesOn &goesOn = GoesOn());

} // namespace compat
