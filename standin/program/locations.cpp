// SPDX-License-Identifier: MIT
#include "standin/program/locations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace standin {

namespace {

#if defined(_WIN32)
const char pluginName[] = "corvaneEditor.mll";
#elif defined(__APPLE__)
const char pluginName[] = "corvaneEditor.bundle";
#else
const char pluginName[] = "corvaneEditor.so";
#endif

} // namespace

QString programRoot()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + "/..");
}

QString defaultPlugin()
{
    // In the folder next to the program's, as it is built, or beside the program itself.
    const QString candidates[] = {
        programRoot() + "/plug-ins/" + pluginName,
        QCoreApplication::applicationDirPath() + "/" + pluginName,
    };
    for (const QString &candidate : candidates) {
        if (QFileInfo(candidate).isFile())
            return candidate;
    }
    return QString();
}

QString defaultUserDirectory()
{
    QString data = QString::fromLocal8Bit(qgetenv("XDG_DATA_HOME"));
    if (data.isEmpty())
        data = QDir::homePath() + "/.local/share";
    return data + "/corvane-standin";
}

} // namespace standin
