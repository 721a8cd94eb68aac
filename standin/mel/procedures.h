// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/nametable.h"
#include "standin/mel/procedure.h"

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace mel {

// The procedures by name: global ones, those typed without "global", and those of each file.
// A procedure without "global" is seen in its own file only; typed texts share theirs, as one
// console.
class Procedures
{
public:
    // The entry for a definition in that source, made on first use.
    ProcedureEntry &entry(const std::string &name, bool isGlobal, const Source &source);
    void define(ProcedureEntry &entry, ProcedurePointer procedure);
    // Counts the definitions, so that callers know when to look for a name again.
    unsigned generation() const { return m_generation; }

    // What a name means outside of files; null where it has not been defined.
    struct Meaning
    {
        ProcedureEntry *global = nullptr;
        ProcedureEntry *typed = nullptr; // counts for callers in typed text, before the global one
    };
    Meaning find(const std::string &name);
    // How many global ones are defined; they only ever become more.
    unsigned globalCount() const { return m_globalCount; }
    // The names of those that were not in an earlier answer, in no order.
    std::vector<std::string> takeNewNames() { return std::exchange(m_newNames, {}); }

private:
    NameTable m_names;
    // By the numbers of the names; few have a typed one. Deques, as their elements never move; none
    // is ever removed.
    std::deque<ProcedureEntry> m_global;
    std::vector<ProcedureEntry *> m_typed;
    std::deque<ProcedureEntry> m_typedEntries;
    std::map<std::string, std::map<std::string, ProcedureEntry>> m_byFile;
    std::vector<std::string> m_newNames;
    unsigned m_globalCount = 0;
    unsigned m_generation = 0;
};

} // namespace mel
