// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>

namespace compat {

// An icon with its twin of double size, "name@2x.png" beside "name.png", where there is one. PNG
// only; an icon without pixels when there is no such file. Needs the application object.
QIcon icon(const QString &path);

// Asks for sharp pixmaps on screens of high density; to be called before the application object
// is made. Does nothing where it is always so, or never.
void enableHighDensityPixmaps();

} // namespace compat
