// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>

namespace compat {

// An icon with its twin of double size, "name@2x.png" beside "name.png", where there is one. PNG
// only; an icon without pixels when there is no such file. Needs the application object.
QIcon icon(const QString &path);

} // namespace compat
