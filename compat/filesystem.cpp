// SPDX-License-Identifier: MIT
#include "compat/filesystem.h"

#include "compat/nativepath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#ifdef Q_OS_UNIX
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <io.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/syscall.h>
#include <sys/xattr.h>
#endif

namespace compat {

namespace {

std::error_code lastError()
{
    return std::error_code(errno, std::generic_category());
}

#ifdef Q_OS_LINUX
using Attributes = QMap<QByteArray, QByteArray>;

const size_t mostAttributeBytes = 0x10000; // of a value, and of all names

// Nothing when some cannot be read. Not all file systems have attributes, and one may be removed
// meanwhile.
std::optional<Attributes> attributesOf(int file)
{
    std::vector<char> names(mostAttributeBytes);
    std::vector<char> value(mostAttributeBytes);
    const ssize_t namesSize = flistxattr(file, names.data(), names.size());
    if (namesSize < 0 && errno != ENOTSUP)
        return std::nullopt;
    Attributes attributes;
    for (ssize_t at = 0; at < namesSize;) {
        const QByteArray name(names.data() + at);
        at += name.size() + 1;
        const ssize_t size = fgetxattr(file, name.constData(), value.data(), value.size());
        if (size >= 0)
            attributes.insert(name, QByteArray(value.data(), int(size)));
        else if (errno != ENODATA && errno != ENOTSUP)
            return std::nullopt;
    }
    return attributes;
}

// Attributes hold access lists as well, and a new file may have inherited one. Those that both have
// need not be set, such as labels that only the system may set.
bool copyAttributes(int file, int model)
{
    const std::optional<Attributes> own = attributesOf(file);
    const std::optional<Attributes> wanted = attributesOf(model);
    if (!own || !wanted)
        return false;
    for (const QByteArray &name : wanted->keys()) {
        const QByteArray value = wanted->value(name);
        if ((!own->contains(name) || own->value(name) != value) &&
            fsetxattr(file, name.constData(), value.constData(), size_t(value.size()), 0) != 0)
            return false;
    }
    for (const QByteArray &name : own->keys()) {
        if (!wanted->contains(name) && fremovexattr(file, name.constData()) != 0)
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

// One step; empty for what is no link.
QString linkTarget(const QString &path)
{
    // Not by Qt, which takes the shortcuts of Windows for links.
    std::error_code error;
    const std::filesystem::path link = nativePath(path);
    const std::filesystem::path target = std::filesystem::read_symlink(link, error);
    return error ? QString() : qtPath(link.parent_path() / target);
}

// The reason of a failure is the system's last error.
bool renameOnce(const QString &path, const QString &newPath)
{
#ifdef Q_OS_UNIX
    const QByteArray from = QFile::encodeName(path);
    const QByteArray to = QFile::encodeName(newPath);
#ifdef SYS_renameat2
    const unsigned noReplacing = 1;
    if (syscall(SYS_renameat2, AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), noReplacing) ==
        0)
        return true;
    if (errno != ENOSYS && errno != EINVAL) // old systems and some file systems do not have it
        return false;
#endif
    if (linkat(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), 0) == 0)
        return unlink(from.constData()) == 0;
    if (errno == EEXIST)
        return false;
#endif
    return QFile::rename(path, newPath);
}

} // namespace

bool createFile(QFile *file, const QString &path, Access access, QString *errorMessage)
{
    const QIODevice::OpenMode readAndWrite = QIODevice::ReadWrite | QIODevice::Unbuffered;
#ifdef Q_OS_UNIX
    // Less what the user's mask takes away. That may be all, so the file is not opened by its name
    // again.
    const mode_t mode = access == Access::UserOnly ? 0600 : 0666;
    const int handle =
        ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (handle >= 0)
        return file->open(handle, readAndWrite, QFile::AutoCloseHandle);
    *errorMessage = messageOf(lastError());
    return false;
#else
    Q_UNUSED(access); // folders decide
    file->setFileName(path);
    const bool created = !file->exists() && file->open(readAndWrite);
    if (!created)
        *errorMessage = file->errorString();
    return created;
#endif
}

QString linkEnd(const QString &path)
{
    const int mostLinks = 40; // as systems have it
    QString end = path;
    for (int i = 0; i < mostLinks; ++i) {
        const QString next = linkTarget(end);
        if (next.isEmpty())
            return end;
        end = next;
    }
    return QString();
}

bool isSameFile(const QString &path, const QString &other)
{
    std::error_code error; // for what is missing
    return std::filesystem::equivalent(nativePath(path), nativePath(other), error);
}

QString fileIdentity(const QString &path)
{
#ifdef Q_OS_UNIX
    struct stat status;
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return QString();
    return QString::fromLatin1("%1:%2").arg(quint64(status.st_dev)).arg(quint64(status.st_ino));
#else
    return QFileInfo(path).canonicalFilePath();
#endif
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

bool isOwnFile(int handle)
{
#ifdef Q_OS_UNIX
    struct stat status;
    return fstat(handle, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink == 1 &&
           status.st_uid == geteuid();
#else
    Q_UNUSED(handle);
    return true;
#endif
}

bool openToAppend(QFile *file, const QString &path, QString *errorMessage)
{
    const QIODevice::OpenMode append =
        QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered;
#ifdef Q_OS_UNIX
    const int handle = ::open(QFile::encodeName(path).constData(),
                              O_WRONLY | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (handle >= 0 && isOwnFile(handle))
        return file->open(handle, append, QFile::AutoCloseHandle);
    *errorMessage =
        messageOf(handle < 0 ? lastError() : std::make_error_code(std::errc::too_many_links));
    if (handle >= 0)
        ::close(handle);
    return false;
#else
    file->setFileName(path);
    const bool opened = file->exists() && file->open(append);
    if (!opened)
        *errorMessage = file->errorString();
    return opened;
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
    if (!replaceFileSoon(path, by, errorMessage))
        return false;
#ifdef Q_OS_UNIX
    flushFolder(QFileInfo(path).path());
#endif
    return true;
}

bool replaceFileSoon(const QString &path, const QString &by, QString *errorMessage)
{
    std::error_code error;
    std::filesystem::rename(nativePath(by), nativePath(path), error);
    if (error)
        *errorMessage = messageOf(error);
    return !error;
}

bool createPrivateFolder(const QString &path)
{
#ifdef Q_OS_UNIX
    return ::mkdir(QFile::encodeName(path).constData(), 0700) == 0;
#else
    return QDir().mkdir(path); // the folder above decides
#endif
}

bool ensurePrivate(const QString &path)
{
#ifdef Q_OS_UNIX
    const int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    const int folder = ::open(QFile::encodeName(path).constData(), flags);
    struct stat status;
    const bool isPrivate = folder >= 0 && fstat(folder, &status) == 0 &&
                           status.st_uid == geteuid() && fchmod(folder, 0700) == 0;
    if (folder >= 0)
        ::close(folder);
    return isPrivate;
#else
    return QFileInfo(path).isDir() && !isLink(path);
#endif
}

bool renameFile(const QString &path, const QString &newPath, QString *errorMessage)
{
    const bool renamed = renameOnce(path, newPath);
    if (!renamed && errorMessage)
        *errorMessage = messageOf(lastError());
    return renamed;
}

bool isTaken(const QString &path)
{
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(nativePath(path), error));
}

bool isLink(const QString &path)
{
    std::error_code error;
    return std::filesystem::is_symlink(nativePath(path), error);
}

bool hasTrash()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 15, 0)
    return true;
#else
    return false;
#endif
}

bool moveToTrash(const QString &path, QString *errorMessage)
{
    QFile file(path);
#if QT_VERSION >= QT_VERSION_CHECK(5, 15, 0)
    if (file.moveToTrash())
        return true;
#endif
    *errorMessage = file.errorString();
    return false;
}

bool FileStamp::operator==(const FileStamp &other) const
{
    return exists == other.exists && size == other.size && modified == other.modified &&
           number == other.number;
}

FileStamp fileStamp(const QString &path)
{
    const QFileInfo info(path);
    FileStamp stamp;
    stamp.exists = info.exists();
    if (!stamp.exists)
        return stamp;
    std::error_code error; // it may be removed meanwhile
    stamp.size = info.size();
    // Not by Qt, whose older versions know seconds only.
    stamp.modified =
        std::filesystem::last_write_time(nativePath(path), error).time_since_epoch().count();
#ifdef Q_OS_UNIX
    struct stat status;
    if (stat(QFile::encodeName(path).constData(), &status) == 0)
        stamp.number = status.st_ino;
#endif
    return stamp;
}

bool isRunning(qint64 process)
{
#ifdef Q_OS_UNIX
    const pid_t number = static_cast<pid_t>(process);
    if (number != process)
        return false;
    return number <= 0 || kill(number, 0) == 0 || errno != ESRCH;
#else
    Q_UNUSED(process);
    return true; // to be on the safe side
#endif
}

} // namespace compat
