// SPDX-License-Identifier: MIT
#include "standin/mel/frame.h"

namespace mel {

Frame::Frame(Runtime &owner, const std::vector<Value> &initial, SourcePointer text,
             size_t filledByCaller)
    : runtime(owner), slots(new Slot[initial.size()]), source(std::move(text))
{
    // A copy for each call, which is what makes recursion work.
    for (size_t i = filledByCaller; i < initial.size(); ++i)
        slots[i].value = initial[i];
}

} // namespace mel
