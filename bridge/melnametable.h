// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/commandhelp.h"

#include <QHash>
#include <QString>

#include <vector>

// The names of all commands, runtime commands and procedures that the host knew when the plug-in
// was loaded, each mapped to itself. Process-wide; empty without a host. Filled once, before an
// editor exists, so highlighters may refer to it. Apart from the catalogue because it needs no
// host.
QHash<QString, QString> &melNameTable();

struct MelName
{
    QString name;
    CommandKind kind = CommandKind::Unknown;
};

// The same with their kinds: each once, as what it is first of all, and without the empty one.
// Behind them, of no kind, names that the host has learned later.
struct MelNames
{
    std::vector<MelName> names; // in the order of the host
    int version = 0;            // changes whenever they are filled anew
};

MelNames &melNames();

// Adds what the host has learned since, within some milliseconds; nothing without a host, whose
// plug-in tells how.
void updateMelNames();
void setMelNamesUpdate(void (*update)());
