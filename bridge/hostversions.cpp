// SPDX-License-Identifier: MIT
#include "bridge/hostversions.h"

namespace {

HostVersionsSource versionsSource = nullptr;

} // namespace

void setHostVersionsSource(HostVersionsSource source)
{
    versionsSource = source;
}

HostVersions hostVersions()
{
    return versionsSource ? versionsSource() : HostVersions();
}
