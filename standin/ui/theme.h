// SPDX-License-Identifier: MIT
#pragma once

class QApplication;
class QColor;

namespace standin {

// The dark look of the whole program.
void applyTheme(QApplication &application);

QColor errorColor();
QColor warningColor();

} // namespace standin
