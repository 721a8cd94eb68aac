// SPDX-License-Identifier: MIT
#include <maya/MApiVersion.h>
