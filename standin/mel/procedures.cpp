// SPDX-License-Identifier: MIT
#include "standin/mel/procedures.h"

#include <algorithm>

namespace mel {

namespace {

// An entry without a procedure belongs to a text that is being compiled, or has failed.
ProcedureEntry *findDefined(const Procedures::Table &table, const std::string &name)
{
    const auto found = table.find(name);
    return found == table.end() || !found->second->current ? nullptr : found->second;
}

} // namespace

bool Procedure::sameSignature(const Procedure &other) const
{
    if (returnType != other.returnType || parameters.size() != other.parameters.size())
        return false;
    for (size_t i = 0; i < parameters.size(); ++i) {
        if (parameters[i].type != other.parameters[i].type)
            return false;
    }
    return true;
}

// Sparse: with thousands of names, what a look-up costs is the entries it meets on the way.
Procedures::Procedures()
{
    m_global.max_load_factor(0.25f);
}

ProcedureEntry &Procedures::entry(const std::string &name, bool isGlobal, const Source &source)
{
    // A file's local procedures are its own; the same name in two files is two procedures.
    Table &table = isGlobal ? m_global : source.isTyped() ? m_typed : m_byFile[source.path];
    ProcedureEntry *&known = table[name];
    if (!known)
        known = &m_entries.emplace_back();
    return *known;
}

// Callers that run the old definition hold it; the next call meets the new one.
void Procedures::define(ProcedureEntry &entry, ProcedurePointer procedure)
{
    if (!entry.current && procedure->isGlobal)
        m_globalNames.push_back(procedure->name);
    entry.current = std::move(procedure);
    ++m_generation;
}

ProcedureEntry *Procedures::findGlobal(const std::string &name) const
{
    return findDefined(m_global, name);
}

ProcedureEntry *Procedures::findTyped(const std::string &name) const
{
    return findDefined(m_typed, name);
}

const std::vector<std::string> &Procedures::sortedGlobalNames()
{
    if (m_sortedCount < m_globalNames.size())
        std::sort(m_globalNames.begin(), m_globalNames.end());
    m_sortedCount = m_globalNames.size();
    return m_globalNames;
}

} // namespace mel
