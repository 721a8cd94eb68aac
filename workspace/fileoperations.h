// SPDX-License-Identifier: MIT
#pragma once

#include "compat/filetree.h"

#include <QString>
#include <QStringList>

// What a file manager does with files. Nothing here replaces a file or follows a link. A reason is
// a sentence without its full stop; paths are absolute.

// Why nothing can be given this name, or an empty text.
QString nameComplaint(const QString &name);

// A path in the folder that nothing has: with the name itself, or else "name copy.ext",
// "name copy 2.ext" and so on.
QString freePath(const QString &folder, const QString &name);

// Of what was made; empty, with a reason, when that failed.
QString createFile(const QString &folder, const QString &name, QString *reason);
QString createFolder(const QString &folder, const QString &name, QString *reason);
// A file, a link or a folder with all that it holds, under a free name. Without a reason when it
// does not go on.
QString copyInto(const QString &folder, const QString &path, QString *reason,
                 const compat::GoesOn &goesOn = compat::GoesOn());
// Within its folder. The case of letters can change also where it makes no other name.
QString renameTo(const QString &name, const QString &path, QString *reason);

struct FileCount
{
    int files = 0;
    bool isComplete = true;
};

// The files in a folder and below, hidden ones too; counting ends when it has seen so many of them
// and of the folders.
FileCount countFiles(const QString &folder, int mostSeen);

// Without the paths that lie in another of them.
QStringList outermostPaths(const QStringList &paths);
