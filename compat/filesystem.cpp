// SPDX-License-Identifier: MIT
#include "compat/filesystem.h"

#include <QFile>
#include <QFileInfo>
#include <QList>

#include <cerrno>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <io.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/xattr.h>
#endif

namespace compat {

namespace {

QString messageOf(const std::error_code &error)
{
    return QString::fromLocal8Bit(error.message().c_str());
}

std::error_code lastError()
{
    return std::error_code(errno, std::generic_category());
}

std::filesystem::path nativePath(const QString &path)
{
#ifdef Q_OS_WIN
    return std::filesystem::path(path.toStdWString());
#else
    return std::filesystem::path(QFile::encodeName(path).constData());
#endif
}

QString qtPath(const std::filesystem::path &path)
{
#ifdef Q_OS_WIN
    return QString::fromStdWString(path.generic_wstring());
#else
    return QFile::decodeName(path.c_str());
#endif
}

#ifdef Q_OS_LINUX
const int mostAttributeBytes = 0xFFFF; // of a value, and of all names

QList<QByteArray> attributesOf(int file)
{
    QByteArray names(mostAttributeBytes, 0);
    // Each ends in a null character. A negative size: this file system has none.
    names.resize(int(qMax<ssize_t>(0, flistxattr(file, names.data(), size_t(names.size())))));
    return names.split('\0');
}

// Null when the file has no such attribute.
QByteArray attribute(int file, const QByteArray &name)
{
    QByteArray value(mostAttributeBytes, 0);
    const ssize_t size = fgetxattr(file, name.constData(), value.data(), size_t(value.size()));
    return size < 0 ? QByteArray() : value.left(int(size));
}

// Attributes hold access lists as well, and a new file may have inherited one. Those that both have
// need not be set, such as labels that only the system may set.
bool copyAttributes(int file, int model)
{
    for (const QByteArray &name : attributesOf(model)) {
        const QByteArray value = attribute(model, name);
        if (value != attribute(file, name) &&
            fsetxattr(file, name.constData(), value.constData(), size_t(value.size()), 0) != 0)
            return false;
    }
    for (const QByteArray &name : attributesOf(file)) {
        if (attribute(model, name).isNull() && !attribute(file, name).isNull() &&
            fremovexattr(file, name.constData()) != 0)
            return false;
    }
    return true;
}
#elif defined(Q_OS_UNIX)
bool copyAttributes(int, int)
{
    return true;
}
#endif

#ifdef Q_OS_UNIX
// The name of a file that was moved is on the disk once its folder is. Not every file system can
// do that, and the file itself is safe.
void flushFolder(const QString &path)
{
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (folder < 0)
        return;
    fsync(folder);
    ::close(folder);
}
#endif

} // namespace

bool createFile(const QString &path, QString *errorMessage)
{
#ifdef Q_OS_UNIX
    const mode_t readAndWrite = 0666; // less what the user's mask takes away
    const int file = ::open(QFile::encodeName(path).constData(),
                            O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, readAndWrite);
    if (file >= 0)
        return ::close(file) == 0;
    *errorMessage = messageOf(lastError());
    return false;
#else
    QFile file(path);
    const bool created = !file.exists() && file.open(QIODevice::WriteOnly);
    if (!created)
        *errorMessage = file.errorString();
    return created;
#endif
}

QString linkTarget(const QString &path)
{
    // Not by Qt, which takes the shortcuts of Windows for links.
    std::error_code error;
    const std::filesystem::path link = nativePath(path);
    const std::filesystem::path target = std::filesystem::read_symlink(link, error);
    return error ? QString() : qtPath(link.parent_path() / target);
}

bool isSameFile(const QString &path, const QString &other)
{
    std::error_code error; // for what is missing
    return std::filesystem::equivalent(nativePath(path), nativePath(other), error);
}

bool hasOtherNames(const QFile &file)
{
#ifdef Q_OS_UNIX
    struct stat status;
    return fstat(file.handle(), &status) == 0 && status.st_nlink > 1;
#else
    Q_UNUSED(file);
    return false;
#endif
}

bool takeAfter(const QFile &file, const QFile &model)
{
#ifdef Q_OS_UNIX
    struct stat own;
    struct stat wanted;
    if (fstat(file.handle(), &own) != 0 || fstat(model.handle(), &wanted) != 0)
        return false;
    const bool sameOwner = own.st_uid == wanted.st_uid && own.st_gid == wanted.st_gid;
    // The owner first: giving a file away takes permissions off it.
    return (sameOwner || fchown(file.handle(), wanted.st_uid, wanted.st_gid) == 0) &&
           fchmod(file.handle(), wanted.st_mode & 07777) == 0 &&
           copyAttributes(file.handle(), model.handle());
#else
    return QFile::setPermissions(file.fileName(), model.permissions());
#endif
}

bool flushToDisk(const QFile &file, QString *errorMessage)
{
#ifdef Q_OS_UNIX
    // Not every file system has something to wait for.
    const bool flushed =
        fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
#else
    const bool flushed = _commit(file.handle()) == 0;
#endif
    if (!flushed)
        *errorMessage = messageOf(lastError());
    return flushed;
}

bool replaceFile(const QString &path, const QString &by, QString *errorMessage)
{
    std::error_code error;
    std::filesystem::rename(nativePath(by), nativePath(path), error);
    if (error) {
        *errorMessage = messageOf(error);
        return false;
    }
#ifdef Q_OS_UNIX
    flushFolder(QFileInfo(path).path());
#endif
    return true;
}

} // namespace compat
