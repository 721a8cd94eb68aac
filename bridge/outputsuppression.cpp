// SPDX-License-Identifier: MIT
#include "bridge/outputsuppression.h"

namespace {

bool outputSuppressed = false;

} // namespace

void setOutputSuppressed(bool suppressed)
{
    outputSuppressed = suppressed;
}

bool isOutputSuppressed()
{
    return outputSuppressed;
}
