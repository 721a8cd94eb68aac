// SPDX-License-Identifier: MIT
#include "standin/mel/procedures.h"

namespace mel {

namespace {

// An entry without a procedure belongs to a text that is being compiled, or has failed.
ProcedureEntry *ifDefined(ProcedureEntry &entry)
{
    return entry.current ? &entry : nullptr;
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

ProcedureEntry &Procedures::entry(const std::string &name, bool isGlobal, const Source &source)
{
    // A file's local procedures are its own; the same name in two files is two procedures.
    if (!isGlobal && !source.isTyped())
        return m_byFile[source.path][name];
    const size_t number = static_cast<size_t>(m_names.add(name));
    if (number == m_entries.size())
        m_entries.emplace_back();
    return isGlobal ? m_entries[number].global : m_entries[number].typed;
}

// Callers that run the old definition hold it; the next call meets the new one.
void Procedures::define(ProcedureEntry &entry, ProcedurePointer procedure)
{
    if (!entry.current && procedure->isGlobal) {
        m_newNames.push_back(procedure->name);
        ++m_globalCount;
    }
    entry.source = procedure->source.get();
    entry.current = std::move(procedure);
    ++m_generation;
}

Procedures::Meaning Procedures::find(const std::string &name)
{
    const int number = m_names.find(name);
    if (number < 0)
        return {};
    Entries &entries = m_entries[static_cast<size_t>(number)];
    return {ifDefined(entries.global), ifDefined(entries.typed)};
}

} // namespace mel
