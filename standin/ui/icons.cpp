// SPDX-License-Identifier: MIT
#include "standin/ui/icons.h"

#include <QFileInfo>

namespace standin {

QIcon iconNamed(const QString &name)
{
    if (QFileInfo(name).isFile())
        return QIcon(name);
    const QString own = ":/standin/icons/" + name;
    return QFileInfo(own).exists() ? QIcon(own) : QIcon();
}

} // namespace standin
