// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What the editor runs in; empty texts for what the host does not tell. Apart from the source of
// it because it needs no host.
struct HostVersions
{
    QString maya;
    QString python;
};

using HostVersionsSource = HostVersions (*)();

// Process-wide, for the GUI thread; null, as at first, where there is no host. Whoever sets it
// takes it back before its code goes.
void setHostVersionsSource(HostVersionsSource source);
// Asks the host at every call.
HostVersions hostVersions();
