// SPDX-License-Identifier: MIT
#include "compat/icon.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPixmap>

namespace compat {

namespace {

// An image of a named format: left to themselves, icons and pixmaps ask every image plug-in about
// every file and look at its time, which is a good part of what a window with many icons costs.
QPixmap pixmap(const QString &path)
{
    return QPixmap::fromImage(QImage(path, "PNG"));
}

} // namespace

QIcon icon(const QString &path)
{
    QIcon result;
    result.addPixmap(pixmap(path));
    QString twin = path;
    twin.insert(twin.lastIndexOf(QLatin1Char('.')), QLatin1String("@2x"));
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0)
    if (qApp->devicePixelRatio() > 1 && QFile::exists(twin)) {
        QPixmap sharp = pixmap(twin);
        sharp.setDevicePixelRatio(2);
        result.addPixmap(sharp);
    }
#else
    if (QFile::exists(twin))
        result.addPixmap(pixmap(twin));
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
