// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QFile;

// What Qt does not do on a file system, or does differently from version to version. Where a system
// has no such notion (owners, hard links), the functions say so and succeed.
namespace compat {

// The permissions of a new file: those of any other, or such that nobody else reads it.
enum class Access { Ordinary, UserOnly };

// Creates an empty file and opens it, unbuffered. Fails where there is something of that name. The
// open file does not know its name.
bool createFile(QFile *file, const QString &path, Access access, QString *errorMessage);

// The file, there or not, that a path leads to over any number of symbolic links: the path itself
// when it is none. Empty when they lead in a circle. ".." in them is left to the system, which
// knows what it is in a linked folder.
QString linkEnd(const QString &path);

// Whether both paths lead to one file that exists, over links and by whatever name.
bool isSameFile(const QString &path, const QString &other);
// For comparing many at once: the same for all paths that lead to one file over links, and, where
// the system numbers its files, by whatever name. Empty for what is missing.
QString fileIdentity(const QString &path);

// Whether the open file is known by another name too, as hard links are.
bool hasOtherNames(const QFile &file);

// Whether the open file is a regular one of this user's without another name. For one that was
// opened through no link, nobody else's can be meant by its name.
bool isOwnFile(int handle);

// Opens such a file for adding to its end, unbuffered, or fails.
bool openToAppend(QFile *file, const QString &path, QString *errorMessage);

// Gives the one open file the owner, the permissions and the attributes of the other; false when
// some of them cannot be given. Writing to the file may take some of them off again.
bool takeAfter(const QFile &file, const QFile &model);

// Waits until the disk has what was written to the open file; some failures show only then.
bool flushToDisk(const QFile &file, QString *errorMessage);

// Moves the file `by` to `path` in one step, whether or not there is a file already.
bool replaceFile(const QString &path, const QString &by, QString *errorMessage);
// The same without waiting until the disk knows it: enough against the end of the program.
bool replaceFileSoon(const QString &path, const QString &by, QString *errorMessage);

// Makes one folder, which only the user can enter. False where there is something of that name.
bool createPrivateFolder(const QString &path);
// Whether it is a folder of this user's, no link, which it then makes such a one.
bool ensurePrivate(const QString &path);

// Renames a file or a link; never in the place of another, even one that appears meanwhile.
bool renameFile(const QString &path, const QString &newPath, QString *errorMessage = nullptr);

// Whether there is something of that name, a link that leads nowhere included.
bool isTaken(const QString &path);

// Unlike Qt's notion of them, never a shortcut of Windows, which is a file.
bool isLink(const QString &path);

// Whether files can be moved to the desktop's trash at all, and moving one there.
bool hasTrash();
bool moveToTrash(const QString &path, QString *errorMessage);

// What tells that a file is not what it was, without reading it. Equal for what is missing.
struct FileStamp
{
    bool exists = false;
    qint64 size = 0;
    qint64 modified = 0; // in the system's own units, which may be small
    quint64 number = 0;  // of a file system that numbers its files: another file of that name

    bool operator==(const FileStamp &other) const;
};

// Over links.
FileStamp fileStamp(const QString &path);

// Whether a process of this number may be at work.
bool isRunning(qint64 process);

} // namespace compat
