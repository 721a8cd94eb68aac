// SPDX-License-Identifier: MIT
#include "standin/sdk/hostaccess.h"

namespace standin {

namespace {

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
