// SPDX-License-Identifier: MIT
#include "tests/support/temporaryfolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

TemporaryFolder::TemporaryFolder()
{
    static int count = 0;
    m_path = QString("%1/corvane-test-%2-%3")
                 .arg(QDir::tempPath())
                 .arg(QCoreApplication::applicationPid())
                 .arg(++count);
    QDir().mkpath(m_path);
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(std::filesystem::u8path(m_path.toUtf8().constData()), ignored);
}

QString TemporaryFolder::file(const QString &name) const
{
    const QString path = m_path + "/" + name;
    QDir().mkpath(QFileInfo(path).path());
    return path;
}

QString TemporaryFolder::write(const QString &name, const QString &text) const
{
    QFile target(file(name));
    if (target.open(QIODevice::WriteOnly))
        target.write(text.toUtf8());
    return target.fileName();
}
