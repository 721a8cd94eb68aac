// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace compat {

// A file that at most one process holds, until it lets go of it or ends, however it ends.
class FileLock
{
public:
    FileLock() = default;
    ~FileLock() { release(); }
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    // Creates the file, for this user only, where there is none. False when somebody holds it, be
    // it another lock of this process, or when it cannot be opened.
    bool take(const QString &path);
    void release();
    bool isHeld() const { return m_isHeld; }
    // Whether it is held and the file still has that path: somebody may have removed it.
    bool isHeldAt(const QString &path) const;

private:
    bool m_isHeld = false;
#ifdef Q_OS_WIN
    void *m_handle = nullptr;
#else
    int m_handle = -1;
#endif
};

// For file systems that know no locks: what tells this process from all others, those that will
// have its number one day included.
QByteArray processIdentity();
// Whether the process of an identity may be at work. Of other computers' processes nothing is
// known.
bool mayBeAtWork(const QByteArray &identity);

} // namespace compat
