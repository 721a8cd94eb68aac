// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>

namespace compat {

// An icon with its twin of double size, "name@2x.png" beside "name.png", where there is one.
QIcon icon(const QString &path);

// Asks for sharp pixmaps on screens of high density; to be called before the application object
// is made. Does nothing where it is always so, or never.
void enableHighDensityPixmaps();

} // namespace compat
