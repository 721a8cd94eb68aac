// SPDX-License-Identifier: MIT
#include "compat/icon.h"

#include <QCoreApplication>
#include <QFile>

namespace compat {

QIcon icon(const QString &path)
{
    QIcon result(path);
#if QT_VERSION < QT_VERSION_CHECK(5, 6, 0)
    QString twin = path;
    twin.insert(twin.lastIndexOf(QLatin1Char('.')), QLatin1String("@2x"));
    if (QFile::exists(twin))
        result.addFile(twin);
#endif
    return result;
}

void enableHighDensityPixmaps()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0) && QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
}

} // namespace compat
