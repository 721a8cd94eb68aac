// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/shortlist.h"
#include "standin/mel/source.h"
#include "standin/mel/type.h"

#include <vector>

namespace mel {

class Runtime;
struct Procedure;

// A local variable. An array parameter points to the caller's array instead of its own value.
// Neither copied nor moved, as `target` may point into the slot itself.
struct Slot
{
    Value value;
    Value *target = &value;
};

// The variables and the current place of one running procedure or text.
// Lives on the program's stack for as long as the call or text runs.
struct Frame
{
    // All slots get their initial values but the first ones, which the caller fills.
    // The text outlives the frame, as does the procedure or unit it belongs to.
    Frame(Runtime &owner, const std::vector<Value> &initial, const SourcePointer &text,
          size_t filledByCaller = 0);

    Runtime &runtime;
    // Compiled code refers to slots by number, array parameters to them by address.
    ShortList<Slot, 6> slots;
    const SourcePointer &source;
    const Procedure *procedure = nullptr; // null at top level
    Value result;                         // what return left
    // Of the statement or call being run, from 1; 0 before the first one.
    int line = 0;
};

// Where a variable lives: at a fixed address (globals) or in a slot of the frame.
// Either address or number stays valid for good: globals are never moved or deleted, and slots are
// numbered while compiling.
class Storage
{
public:
    explicit Storage(Value *global) : m_global(global) {}
    explicit Storage(int slot) : m_slot(slot) {}

    Value &in(Frame &frame) const { return m_global ? *m_global : *frame.slots[m_slot].target; }
    // Null for a global, and for an array that belongs to the caller.
    Value *ownedBy(Frame &frame) const;

private:
    Value *m_global = nullptr;
    int m_slot = 0;
};

} // namespace mel
