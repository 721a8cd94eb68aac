// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace compat {

// Of a list that stands above others and leaves the keyboard where it is, also when it is clicked.
// Qt 4 has no such flag.
inline Qt::WindowFlags popupFlags()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return Qt::ToolTip | Qt::WindowDoesNotAcceptFocus;
#else
    return Qt::ToolTip;
#endif
}

} // namespace compat
