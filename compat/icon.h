// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QImage>
#include <QString>
#include <QStringList>

namespace compat {

// An icon with its twin of double size, "name@2x.png" beside "name.png", where there is one. PNG
// only; an icon without pixels when there is no such file. Needs the application object.
QIcon icon(const QString &path);
// One that is drawn in several sizes.
QIcon icon(const QStringList &paths);

// A picture to be painted at its own size: the twin, with its ratio of pixels, on a display that
// has them.
QImage image(const QString &path);

} // namespace compat
