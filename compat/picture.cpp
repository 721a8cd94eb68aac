// SPDX-License-Identifier: MIT
#include "compat/picture.h"

#include <QPixmap>
#include <QWidget>
#include <QtGlobal>

namespace compat {

// Both see to the sizes and layouts of a widget that was never shown.
QPixmap pictureOf(QWidget *widget)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return widget->grab();
#else
    return QPixmap::grabWidget(widget);
#endif
}

} // namespace compat
