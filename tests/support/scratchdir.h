// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

// An empty directory for one test, removed with everything in it.
class ScratchDir
{
public:
    ScratchDir();
    ~ScratchDir();
    ScratchDir(const ScratchDir &) = delete;
    ScratchDir &operator=(const ScratchDir &) = delete;

    QString path() const { return m_path; }
    QString file(const char *name) const;

    // Writes a file; returns its path.
    QString write(const char *name, const QByteArray &bytes) const;
    QByteArray read(const char *name) const;

private:
    QString m_path;
};
