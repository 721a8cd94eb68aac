// SPDX-License-Identifier: MIT
#include "standin/ui/icons.h"

#include <QFileInfo>

namespace standin {

QIcon iconNamed(const QString &name)
{
    // A file goes first, so that a script's own icon wins over one of the same name here.
    if (QFileInfo(name).isFile())
        return QIcon(name);
    const QString own = ":/standin/icons/" + name;
    return QFileInfo(own).exists() ? QIcon(own) : QIcon();
}

} // namespace standin
