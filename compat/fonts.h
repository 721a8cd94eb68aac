// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace compat {

// The installed font families in alphabetical order.
QStringList fontFamilies();

// Whether every character of the family is as wide as every other.
bool isFixedPitch(const QString &family);

} // namespace compat
