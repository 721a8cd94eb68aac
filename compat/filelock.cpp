// SPDX-License-Identifier: MIT
#include "compat/filelock.h"

#include "compat/filesystem.h"

#include <QCoreApplication>
#include <QFile>
#include <QList>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace compat {

#ifdef Q_OS_WIN

// A file that is shared with nobody is a lock that ends with its process, on network drives too.
bool FileLock::take(const QString &path)
{
    release();
    const HANDLE handle =
        CreateFileW(reinterpret_cast<const wchar_t *>(path.utf16()), GENERIC_READ | GENERIC_WRITE,
                    0, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    m_isHeld = handle != INVALID_HANDLE_VALUE;
    m_handle = m_isHeld ? handle : nullptr;
    return m_isHeld;
}

void FileLock::release()
{
    if (m_isHeld)
        CloseHandle(m_handle);
    m_isHeld = false;
}

bool FileLock::isHeldAt(const QString &) const
{
    return m_isHeld; // an open file stays where it is
}

QByteArray processIdentity()
{
    return QByteArray::number(QCoreApplication::applicationPid());
}

bool mayBeAtWork(const QByteArray &)
{
    return true; // to be on the safe side
}

#else

namespace {

QByteArray hostName()
{
    char name[256] = {};
    gethostname(name, sizeof name - 1);
    return QByteArray(name).replace(' ', '_');
}

// In ticks since the system's start; empty where the system does not tell.
QByteArray startTime(const QByteArray &process)
{
    QFile status(QString::fromLatin1("/proc/%1/stat").arg(QLatin1String(process)));
    if (!status.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray line = status.readAll();
    // The program's name, in parentheses, may have anything in it.
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 1).trimmed().split(' ');
    const int startField = 19; // counted from the one behind the name
    return fields.size() > startField ? fields.at(startField) : QByteArray();
}

QByteArray contentsOf(int file)
{
    char bytes[512];
    const ssize_t size = pread(file, bytes, sizeof bytes, 0);
    return size > 0 ? QByteArray(bytes, int(size)) : QByteArray();
}

bool hasName(int file)
{
    struct stat status;
    return fstat(file, &status) == 0 && status.st_nlink > 0;
}

// A link of that name may lead to a file of the user's, which is not to be emptied. -1 for that.
int openLock(const QString &path)
{
    const int file = ::open(QFile::encodeName(path).constData(),
                            O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    if (file < 0 || isOwnFile(file))
        return file;
    ::close(file);
    return -1;
}

// A lock of the open file, not of the process: another one here is kept out too.
bool lock(int file)
{
    if (flock(file, LOCK_EX | LOCK_NB) == 0)
        return hasName(file); // its last holder may have removed it meanwhile
    if (errno == EWOULDBLOCK || errno == EINTR)
        return false;
    const QByteArray holder = contentsOf(file);
    return holder.isEmpty() || !mayBeAtWork(holder);
}

} // namespace

bool FileLock::take(const QString &path)
{
    release();
    const int file = openLock(path);
    if (file < 0)
        return false;
    const QByteArray identity = processIdentity();
    m_isHeld = lock(file) && ftruncate(file, 0) == 0 &&
               pwrite(file, identity.constData(), size_t(identity.size()), 0) == identity.size();
    if (m_isHeld)
        m_handle = file;
    else
        ::close(file);
    return m_isHeld;
}

void FileLock::release()
{
    if (!m_isHeld)
        return;
    m_isHeld = false;
    // The process may live on, as Maya does without its plug-in.
    if (ftruncate(m_handle, 0) != 0)
        qWarning("A lock could not be emptied.");
    ::close(m_handle);
}

bool FileLock::isHeldAt(const QString &path) const
{
    struct stat held;
    struct stat found;
    return m_isHeld && fstat(m_handle, &held) == 0 &&
           lstat(QFile::encodeName(path).constData(), &found) == 0 && held.st_ino == found.st_ino &&
           held.st_dev == found.st_dev;
}

QByteArray processIdentity()
{
    const QByteArray process = QByteArray::number(qint64(getpid()));
    return hostName() + ' ' + process + ' ' + startTime(process);
}

bool mayBeAtWork(const QByteArray &identity)
{
    const QList<QByteArray> fields = identity.split(' ');
    if (fields.size() != 3 || fields.first() != hostName())
        return true;
    const QByteArray started = startTime(fields.at(1));
    return isRunning(fields.at(1).toLongLong()) &&
           (started.isEmpty() || fields.at(2).isEmpty() || started == fields.at(2));
}

#endif

} // namespace compat
