// SPDX-License-Identifier: MIT
#pragma once

class QApplication;
class QColor;

namespace standin {

// The dark look of the whole program.
void applyTheme(QApplication &application);

QColor windowColor();
QColor fieldColor(); // of input fields and lists
QColor errorColor();
QColor warningColor();

} // namespace standin
