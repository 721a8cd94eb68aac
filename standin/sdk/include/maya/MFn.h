// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>

STANDIN_API_OPEN

// The kinds of objects; of the many there are, those that this stand-in can have. The numbers are
// not the same in every release, so code writes the names.
class STANDIN_API MFn
{
public:
    enum Type { kInvalid = 0, kBase = 1, kPlugin = 579 };
};

STANDIN_API_CLOSE
