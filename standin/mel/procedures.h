// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/procedure.h"

#include <deque>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace mel {

// The procedures by name: global ones, those typed without "global", and those of each file.
// A procedure without "global" is seen in its own file only; typed texts share theirs, as one
// console.
class Procedures
{
public:
    Procedures();

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
    Meaning find(const std::string &name) const;
    size_t globalCount() const { return m_globalNames.size(); }
    // Sorted anew only when there are more: scripts walk over all names, of which there are many.
    const std::vector<std::string> &sortedGlobalNames();

private:
    ProcedureEntry *&place(const std::string &name, bool isGlobal, const Source &source);

    std::unordered_map<std::string, Meaning> m_meanings;
    std::map<std::string, std::unordered_map<std::string, ProcedureEntry *>> m_byFile;
    // A deque, as its elements never move; entries are never removed either.
    std::deque<ProcedureEntry> m_entries;
    std::vector<std::string> m_globalNames; // of defined ones
    size_t m_sortedCount = 0;               // how many of the first are in their order
    unsigned m_generation = 0;
};

} // namespace mel
