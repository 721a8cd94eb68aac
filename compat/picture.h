// SPDX-License-Identifier: MIT
#pragma once

class QPixmap;
class QWidget;

namespace compat {

// What the widget and its children look like, whether it is shown or not.
QPixmap pictureOf(QWidget *widget);

} // namespace compat
