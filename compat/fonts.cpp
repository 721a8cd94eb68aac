// SPDX-License-Identifier: MIT
#include "compat/fonts.h"

#include <QFontDatabase>

namespace compat {

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

QStringList fontFamilies()
{
    return QFontDatabase::families();
}

bool isFixedPitch(const QString &family)
{
    return QFontDatabase::isFixedPitch(family);
}

#else

QStringList fontFamilies()
{
    return QFontDatabase().families();
}

bool isFixedPitch(const QString &family)
{
    return QFontDatabase().isFixedPitch(family);
}

#endif

} // namespace compat
