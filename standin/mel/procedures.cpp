// SPDX-License-Identifier: MIT
#include "standin/mel/procedures.h"

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

ProcedureEntry &Procedures::entry(const std::string &name, bool isGlobal, const Source &source)
{
    // A file's local procedures are its own; the same name in two files is two procedures.
    if (!isGlobal && !source.isTyped())
        return m_byFile[source.path][name];
    const size_t number = static_cast<size_t>(m_names.add(name));
    if (number == m_global.size()) {
        m_global.emplace_back();
        m_typed.push_back(nullptr);
    }
    if (isGlobal)
        return m_global[number];
    if (!m_typed[number])
        m_typed[number] = &m_typedEntries.emplace_back();
    return *m_typed[number];
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
    return {ifDefined(&m_global[static_cast<size_t>(number)]),
            ifDefined(m_typed[static_cast<size_t>(number)])};
}

} // namespace mel
