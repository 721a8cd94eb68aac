// SPDX-License-Identifier: MIT
#pragma once

class QApplication;
class QColor;

namespace standin {

// The dark look of the whole program. Called once, before any widget is made.
void applyTheme(QApplication &application);

// Of the message field, behind the text.
QColor errorColor();
QColor warningColor();

} // namespace standin
