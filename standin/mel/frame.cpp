// SPDX-License-Identifier: MIT
#include "standin/mel/frame.h"

namespace mel {

Frame::Frame(Runtime &owner, const std::vector<Value> &initial, const SourcePointer &text,
             size_t filledByCaller)
    : runtime(owner), slots(initial.size()), source(text)
{
    for (size_t i = 0; i < filledByCaller; ++i)
        slots.add();
    // A copy for each call, which is what makes recursion work.
    for (size_t i = filledByCaller; i < initial.size(); ++i)
        slots.add(initial[i]);
}

Value *Storage::ownedBy(Frame &frame) const
{
    if (m_global)
        return nullptr;
    Slot &slot = frame.slots[m_slot];
    return slot.target == &slot.value ? &slot.value : nullptr;
}

} // namespace mel
