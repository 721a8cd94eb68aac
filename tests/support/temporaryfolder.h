// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// An empty folder that is removed, with all that is in it, at the end of the scope.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    QString path() const { return m_path; }
    // The full path of an entry; its folders are made.
    QString file(const QString &name) const;
    // Writes the text, as UTF-8, into a file of that name; returns its path.
    QString write(const QString &name, const QString &text) const;

private:
    QString m_path;
};
