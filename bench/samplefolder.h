// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/tabentry.h"
#include "workspace/workspacestate.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>

#include <filesystem>
#include <system_error>

// The files as tabs, the one with the index in front, each with its caret and scroll bar there.
inline WorkspaceState tabsOf(const QStringList &paths, int index, int cursor, int scroll)
{
    WorkspaceState state;
    for (const QString &path : paths) {
        TabEntry entry;
        entry.path = path;
        entry.cursorPosition = cursor;
        entry.scrollValue = scroll;
        state.openTabs << entry.text();
    }
    state.indexA = index;
    return state;
}

// A folder of files for one run, gone with its owner.
class SampleFolder
{
public:
    SampleFolder() { m_folder.mkpath(m_folder.path()); }
    ~SampleFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder.path().toLocal8Bit().constData(), ignored);
    }
    SampleFolder(const SampleFolder &) = delete;
    SampleFolder &operator=(const SampleFolder &) = delete;

    QString path() const { return m_folder.path(); }
    // Returns the path.
    QString write(const QString &name, const QString &text) const
    {
        QFile file(m_folder.filePath(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(text.toUtf8());
        return file.fileName();
    }

private:
    QDir m_folder =
        QDir(QDir::tempPath() +
             QString::fromLatin1("/corvane-bench-%1").arg(QCoreApplication::applicationPid()));
};
