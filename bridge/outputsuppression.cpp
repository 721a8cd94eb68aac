// SPDX-License-Identifier: MIT
#include "bridge/outputsuppression.h"

namespace {

// Plain: callback and calls are all on the GUI thread.
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

OutputSuppression::OutputSuppression(bool suppress)
{
    if (suppress)
        setOutputSuppressed(true);
}
