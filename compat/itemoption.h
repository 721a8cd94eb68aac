// SPDX-License-Identifier: MIT
#pragma once

#include <QStyleOption>

namespace compat {

// What a delegate is told of an item, all of it: Qt 4 hands a base class around, and a copy of that
// loses the widget, and with it the style sheet.
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
typedef QStyleOptionViewItem ItemOption;
#else
typedef QStyleOptionViewItemV4 ItemOption;
#endif

} // namespace compat
