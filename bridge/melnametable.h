// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

// The names of all commands, runtime commands and procedures that the host knew when the plug-in
// was loaded, each mapped to itself. Process-wide; empty without a host.
QHash<QString, QString> &melNameTable();
