// SPDX-License-Identifier: MIT
#include "compat/icon.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QPixmapCache>

namespace compat {

namespace {

// Of a named format and kept by our own name: left to themselves, icons and pixmaps ask every image
// plug-in about every file and look at its time, a good part of what a window with many icons
// costs.
QPixmap pixmap(const QString &path)
{
    const QString key = QLatin1String("corvane") + path; // the cache is the host's as well
    QPixmap result;
    if (!QPixmapCache::find(key, &result)) {
        result = QPixmap::fromImage(QImage(path, "PNG"));
        QPixmapCache::insert(key, result);
    }
    return result;
}

QString twinOf(QString path)
{
    return path.insert(path.lastIndexOf(QLatin1Char('.')), QLatin1String("@2x"));
}

void addPixmaps(QIcon *icon, const QString &path)
{
    icon->addPixmap(pixmap(path));
    const QString twin = twinOf(path);
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0)
    if (qApp->devicePixelRatio() > 1 && QFile::exists(twin)) {
        QPixmap sharp = pixmap(twin);
        sharp.setDevicePixelRatio(2);
        icon->addPixmap(sharp);
    }
#else
    // Without a ratio of pixels the twin is just a larger pixmap, which the icon scales down.
    if (QFile::exists(twin))
        icon->addPixmap(pixmap(twin));
#endif
}

} // namespace

QImage image(const QString &path)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0)
    if (qApp->devicePixelRatio() > 1) {
        QImage sharp(twinOf(path), "PNG");
        sharp.setDevicePixelRatio(2);
        return sharp;
    }
#endif
    return QImage(path, "PNG");
}

QIcon icon(const QString &path)
{
    return icon(QStringList(path));
}

QIcon icon(const QStringList &paths)
{
    QIcon result;
    for (const QString &path : paths)
        addPixmaps(&result, path);
    return result;
}

} // namespace compat
