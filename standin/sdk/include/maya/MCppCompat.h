// SPDX-License-Identifier: MIT
#pragma once

// Lets older compilers read headers that say nullptr, override and final. Every compiler this
// stand-in supports knows the words, so there is nothing to define.
#include <maya/MTypes.h>
