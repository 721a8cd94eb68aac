// SPDX-License-Identifier: MIT
#include "workspace/fileoperations.h"

#include "compat/filesystem.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("FileOperations", text);
}

QString pathIn(const QString &folder, const QString &name)
{
    return QDir(folder).absoluteFilePath(name);
}

// The dot of the suffix; the end of the name when there is none. ".profile" is all name.
int suffixStart(const QString &name)
{
    const int dot = int(name.lastIndexOf(QLatin1Char('.')));
    return dot > 0 ? dot : int(name.size());
}

bool isFolder(const QString &path)
{
    return QFileInfo(path).isDir() && !compat::isLink(path);
}

bool isWithin(const QString &path, const QString &folder)
{
    const QString begin = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
    return path == folder || path.startsWith(begin);
}

// Whether a new name can be used, with a reason if not.
bool isUsable(const QString &folder, const QString &name, QString *reason)
{
    *reason = nameComplaint(name);
    if (reason->isEmpty() && compat::isTaken(pathIn(folder, name)))
        *reason = translated("There is something of that name already");
    return reason->isEmpty();
}

// Whether a name is taken by the file itself, on a system that does not tell case apart. Not by
// another file, nor by another link to the same one.
bool isOtherCase(const QFileInfo &file, const QString &name)
{
    const QDir folder = file.dir();
    return name != file.fileName() && name.compare(file.fileName(), Qt::CaseInsensitive) == 0 &&
           compat::isSameFile(file.filePath(), folder.absoluteFilePath(name)) &&
           !folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System).contains(name);
}

} // namespace

QString nameComplaint(const QString &name)
{
    if (name.trimmed().isEmpty())
        return translated("A name is needed");
    if (name == QLatin1String(".") || name == QLatin1String(".."))
        return translated("This name stands for a folder");
    // Either separator: files wander from one system to another.
    if (name.contains(QLatin1Char('/')) || name.contains(QLatin1Char('\\')))
        return translated("A name cannot hold / or \\");
    return QString();
}

QString freePath(const QString &folder, const QString &name)
{
    QString path = pathIn(folder, name);
    const int dot = suffixStart(name);
    for (int i = 1; compat::isTaken(path); ++i) {
        const QString copy = i == 1 ? translated("copy") : translated("copy %1").arg(i);
        path = pathIn(folder, name.left(dot) + QLatin1Char(' ') + copy + name.mid(dot));
    }
    return path;
}

QString createFile(const QString &folder, const QString &name, QString *reason)
{
    const QString path = pathIn(folder, name);
    QFile file;
    return isUsable(folder, name, reason) &&
                   compat::createFile(&file, path, compat::Access::Ordinary, reason)
               ? path
               : QString();
}

QString createFolder(const QString &folder, const QString &name, QString *reason)
{
    if (!isUsable(folder, name, reason))
        return QString();
    if (QDir(folder).mkdir(name))
        return pathIn(folder, name);
    *reason = QFileInfo(folder).isWritable() ? translated("The system refuses it")
                                             : translated("The folder cannot be written to");
    return QString();
}

QString copyInto(const QString &folder, const QString &source, QString *reason,
                 const compat::GoesOn &goesOn)
{
    const QString path = QDir::cleanPath(source); // other programs end folders with a separator
    const QFileInfo info(path);
    const QString newPath = freePath(folder, info.fileName());
    if (!compat::isTaken(path))
        *reason = translated("It does not exist any more");
    // By what the paths lead to: the folder may have been reached over a link.
    else if (isFolder(path) &&
             isWithin(QFileInfo(folder).canonicalFilePath(), info.canonicalFilePath()))
        *reason = translated("A folder cannot be copied into itself");
    else if (compat::copyTree(path, newPath, reason, goesOn))
        return newPath;
    return QString();
}

QString renameTo(const QString &name, const QString &path, QString *reason)
{
    const QString folder = QFileInfo(path).absolutePath();
    const QString newPath = pathIn(folder, name);
    // To take the place of itself, which the careful way below refuses.
    if (nameComplaint(name).isEmpty() && isOtherCase(QFileInfo(path), name))
        return compat::replaceFileSoon(newPath, path, reason) ? newPath : QString();
    return isUsable(folder, name, reason) && compat::renameFile(path, newPath, reason) ? newPath
                                                                                       : QString();
}

FileCount countFiles(const QString &folder, int mostSeen)
{
    QDirIterator entries(folder,
                         QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
    FileCount count;
    for (int seen = 0; entries.hasNext(); ++seen) {
        if (seen == mostSeen) {
            count.isComplete = false;
            break;
        }
        entries.next();
        if (!entries.fileInfo().isDir())
            ++count.files;
    }
    return count;
}

QStringList outermostPaths(const QStringList &paths)
{
    QStringList outermost;
    for (const QString &path : paths) {
        bool isInner = false;
        for (const QString &other : paths)
            isInner = isInner || (other != path && isWithin(path, other));
        if (!isInner)
            outermost << path;
    }
    return outermost;
}
