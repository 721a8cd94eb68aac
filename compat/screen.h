// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

class QWidget;

namespace compat {

// The part of the widget's screen that no panel or menu bar covers.
QRect availableGeometry(const QWidget *widget);

} // namespace compat
