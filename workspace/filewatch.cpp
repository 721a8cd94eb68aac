// SPDX-License-Identifier: MIT
#include "workspace/filewatch.h"

#include <QFileInfo>

namespace {

// Milliseconds in which a program saves a file that it moves away first, writes anew and gives its
// permissions.
const int burst = 100;

// In which the file, or the way to it, would appear.
QString nearestFolder(const QString &path)
{
    QString folder = QFileInfo(path).absolutePath();
    while (!QFileInfo(folder).isDir() && !QFileInfo(folder).isRoot())
        folder = QFileInfo(folder).absolutePath();
    return folder;
}

// What is there to be watched. A file that is replaced is seen in its folder, a link's also in that
// of its target.
QStringList placesOf(const QString &path)
{
    const QString end = compat::linkEnd(path);
    QStringList places;
    if (QFileInfo(path).exists())
        places << path;
    places << nearestFolder(path);
    if (!end.isEmpty())
        places << nearestFolder(end);
    return places;
}

} // namespace

FileWatch::FileWatch(QObject *parent) : QObject(parent)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, SIGNAL(timeout()), SLOT(checkNow()));
    connect(&m_watcher, SIGNAL(fileChanged(QString)), SLOT(noteFile(QString)));
    connect(&m_watcher, SIGNAL(directoryChanged(QString)), SLOT(noteFolder()));
}

void FileWatch::watch(const QString &path)
{
    if (path.isEmpty() || m_files[path].count++ > 0)
        return;
    m_files[path].stamp = compat::fileStamp(path);
    noteFolder(); // for all files together that are opened at once
}

void FileWatch::unwatch(const QString &path)
{
    if (!m_files.contains(path) || --m_files[path].count > 0)
        return;
    m_files.remove(path);
    m_noted.remove(path);
    noteFolder();
}

void FileWatch::noteFile(const QString &path)
{
    m_noted.insert(path);
    noteFolder();
}

// Not started again: a file that is written all the time is reported all the same.
void FileWatch::noteFolder()
{
    if (!m_timer.isActive())
        m_timer.start(burst);
}

void FileWatch::checkNow()
{
    m_timer.stop();
    updateWatcher(); // first, so that nothing escapes both the look and the notices
    const QStringList changed = takeChanges();
    if (!changed.isEmpty())
        updateWatcher();
    for (const QString &path : changed) {
        if (m_files.contains(path)) // whoever hears of one may close another
            emit fileChanged(path);
    }
}

// The system may go on watching what is no longer the file, or the folder, of that name; so those
// that have changed are given up.
QStringList FileWatch::takeChanges()
{
    QStringList changed;
    for (const QString &path : m_files.keys()) {
        const compat::FileStamp stamp = compat::fileStamp(path);
        if (stamp == m_files[path].stamp && !m_noted.contains(path))
            continue;
        m_files[path].stamp = stamp;
        changed << path;
        for (const QString &place : placesOf(path))
            m_watcher.removePath(place);
    }
    m_noted.clear();
    return changed;
}

void FileWatch::updateWatcher()
{
    QStringList wanted;
    for (const QString &path : m_files.keys())
        wanted += placesOf(path);
    wanted.removeDuplicates();
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    for (const QString &place : watched) {
        if (!wanted.contains(place))
            m_watcher.removePath(place);
    }
    for (const QString &place : wanted) {
        if (!watched.contains(place))
            m_watcher.addPath(place);
    }
}
