// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

// The names of all commands, runtime commands and procedures that the host knew when the plug-in
// was loaded, each mapped to itself. Process-wide; empty without a host. Filled once, before an
// editor exists, so highlighters may refer to it. Apart from the catalogue because it needs no
// host.
QHash<QString, QString> &melNameTable();
