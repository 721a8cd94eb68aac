// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace standin {

// A fixed-width font in the size of the interface.
inline QFont codeFont()
{
    QFont font("Monospace");
    font.setStyleHint(QFont::TypeWriter);
    font.setPointSizeF(QFont().pointSizeF());
    return font;
}

} // namespace standin
