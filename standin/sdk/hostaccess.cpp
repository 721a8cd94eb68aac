// SPDX-License-Identifier: MIT
#include "standin/sdk/hostaccess.h"

namespace standin {

namespace {

// In this library and nowhere else: the host and every plug-in link it, so they see the same one.
HostServices *runningHost = nullptr;

} // namespace

void setHostServices(HostServices *services)
{
    runningHost = services;
}

HostServices *hostServices()
{
    return runningHost;
}

} // namespace standin
