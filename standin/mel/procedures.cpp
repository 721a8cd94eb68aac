// SPDX-License-Identifier: MIT
#include "standin/mel/procedures.h"

#include <algorithm>

namespace mel {

namespace {

// An entry without a procedure belongs to a text that is being compiled, or has failed.
ProcedureEntry *ifDefined(ProcedureEntry *entry)
{
    return entry && entry->current ? entry : nullptr;
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
    m_meanings.max_load_factor(0.25f);
}

ProcedureEntry *&Procedures::place(const std::string &name, bool isGlobal, const Source &source)
{
    // A file's local procedures are its own; the same name in two files is two procedures.
    if (!isGlobal && !source.isTyped())
        return m_byFile[source.path][name];
    Meaning &meaning = m_meanings[name];
    return isGlobal ? meaning.global : meaning.typed;
}

ProcedureEntry &Procedures::entry(const std::string &name, bool isGlobal, const Source &source)
{
    ProcedureEntry *&known = place(name, isGlobal, source);
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

Procedures::Meaning Procedures::find(const std::string &name) const
{
    const auto found = m_meanings.find(name);
    if (found == m_meanings.end())
        return {};
    return {ifDefined(found->second.global), ifDefined(found->second.typed)};
}

const std::vector<std::string> &Procedures::sortedGlobalNames()
{
    if (m_sortedCount < m_globalNames.size())
        std::sort(m_globalNames.begin(), m_globalNames.end());
    m_sortedCount = m_globalNames.size();
    return m_globalNames;
}

} // namespace mel
