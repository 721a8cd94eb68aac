// SPDX-License-Identifier: MIT
#include "analysis/outlineitem.h"

bool operator==(const OutlineItem &a, const OutlineItem &b)
{
    return a.kind == b.kind && a.name == b.name && a.position == b.position && a.depth == b.depth;
}
