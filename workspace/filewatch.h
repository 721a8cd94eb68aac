// SPDX-License-Identifier: MIT
#pragma once

#include "compat/filesystem.h"

#include <QFileSystemWatcher>
#include <QMap>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>

// Tells of files that others write, replace, remove or bring back, however they do that. It says
// the same of what this program writes and of a file that is merely touched: whoever has read the
// file knows whether its contents are others.
//
// What the system's notices miss, as in folders that are moved or where there may be no more
// watches, checkNow() finds.
class FileWatch : public QObject
{
    Q_OBJECT

public:
    explicit FileWatch(QObject *parent = nullptr);

    // Absolute paths; the file need not be there. Each call of the first wants one of the second.
    void watch(const QString &path);
    void unwatch(const QString &path);

public slots:
    // Reports what has changed up to now.
    void checkNow();

signals:
    // Once for changes that follow each other closely. The file may be gone, or there again.
    void fileChanged(const QString &path);

private slots:
    void noteFile(const QString &path);
    void noteFolder();

private:
    struct File
    {
        int count = 0; // of calls
        compat::FileStamp stamp;
    };
    QStringList takeChanges();
    void updateWatcher();

    QMap<QString, File> m_files; // by path
    QSet<QString> m_noted;       // paths of which the watcher has told since the last check
    QFileSystemWatcher m_watcher;
    QTimer m_timer; // runs from the first of several changes to their report
};
