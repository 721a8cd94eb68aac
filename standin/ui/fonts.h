// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace standin {

// A fixed-width font in the size of the interface.
inline QFont codeFont()
{
    // The hint finds a substitute where no font has that name.
    QFont font("Monospace");
    font.setStyleHint(QFont::TypeWriter);
    // A font made by its name has a size of its own.
    font.setPointSizeF(QFont().pointSizeF());
    return font;
}

} // namespace standin
