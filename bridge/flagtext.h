// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

// The flags in the answer of Maya's "help -so", three texts for each: the short name, the long name
// and the first argument's type, empty where the line has fewer; what follows them is left out. The
// list is empty unless the answer has exactly one section of flags.
QStringList flagFields(const QString &helpText);
