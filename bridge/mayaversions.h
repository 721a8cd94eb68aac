// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/hostversions.h"

// Asks Maya, and the Python in it.
HostVersions mayaVersions();
