// SPDX-License-Identifier: MIT
#include "tests/support/scratchdir.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

void removeTree(const QString &path)
{
    QDir directory(path);
    const QDir::Filters everything =
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo &entry : directory.entryInfoList(everything)) {
        if (entry.isDir() && !entry.isSymLink())
            removeTree(entry.absoluteFilePath());
        else
            QFile::remove(entry.absoluteFilePath());
    }
    directory.rmdir(path);
}

} // namespace

ScratchDir::ScratchDir()
{
    static int count = 0;
    m_path = QDir(QDir::tempPath())
                 .absoluteFilePath(QString::fromLatin1("corvane-test-%1-%2")
                                       .arg(QCoreApplication::applicationPid())
                                       .arg(count++));
    removeTree(m_path);
    QDir().mkpath(m_path);
}

ScratchDir::~ScratchDir()
{
    removeTree(m_path);
}

QString ScratchDir::file(const char *name) const
{
    return m_path + QLatin1Char('/') + QString::fromUtf8(name);
}

QString ScratchDir::write(const char *name, const QByteArray &bytes) const
{
    QFile target(file(name));
    if (target.open(QIODevice::WriteOnly))
        target.write(bytes);
    return file(name);
}

QByteArray ScratchDir::read(const char *name) const
{
    QFile source(file(name));
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("(no such file)");
}
