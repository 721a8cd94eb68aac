// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/source.h"
#include "standin/mel/type.h"

#include <memory>
#include <vector>

namespace mel {

class Runtime;
struct Procedure;

// A local variable. An array parameter points to the caller's array instead of its own value.
struct Slot
{
    Value value;
    Value *target = &value;
};

// The variables and the current place of one running procedure or text.
struct Frame
{
    // All slots get their initial values but the first ones, which the caller fills.
    Frame(Runtime &owner, const std::vector<Value> &initial, SourcePointer text,
          size_t filledByCaller = 0);

    Runtime &runtime;
    std::unique_ptr<Slot[]> slots;
    SourcePointer source;
    const Procedure *procedure = nullptr; // null at top level
    Frame *caller = nullptr;
    Value result;
    int line = 0;
};

// Where a variable lives: at a fixed address (globals) or in a slot of the frame.
class Storage
{
public:
    explicit Storage(Value *global) : m_global(global) {}
    explicit Storage(int slot) : m_slot(slot) {}

    Value &in(Frame &frame) const { return m_global ? *m_global : *frame.slots[m_slot].target; }

private:
    Value *m_global = nullptr;
    int m_slot = 0;
};

} // namespace mel
