// SPDX-License-Identifier: MIT
#include "standin/mel/nametable.h"

#include <functional>

namespace mel {

namespace {

constexpr size_t firstPlaces = 64;

std::uint64_t hashOf(std::string_view name)
{
    return std::hash<std::string_view>()(name);
}

std::uint32_t markOf(std::uint64_t hash)
{
    return static_cast<std::uint32_t>(hash >> 32);
}

} // namespace

NameTable::NameTable() : m_places(firstPlaces) {}

std::string_view NameTable::name(int number) const
{
    const size_t begin = number > 0 ? m_ends[size_t(number) - 1] : 0;
    return std::string_view(m_text).substr(begin, m_ends[size_t(number)] - begin);
}

// Ends, as there is always a free place.
size_t NameTable::place(std::string_view wanted, std::uint64_t hash) const
{
    const size_t mask = m_places.size() - 1;
    const std::uint32_t mark = markOf(hash);
    size_t at = hash & mask;
    for (; m_places[at].number >= 0; at = (at + 1) & mask) {
        if (m_places[at].mark == mark && name(m_places[at].number) == wanted)
            break;
    }
    return at;
}

int NameTable::find(std::string_view name) const
{
    return m_places[place(name, hashOf(name))].number;
}

int NameTable::add(std::string_view name)
{
    const std::uint64_t hash = hashOf(name);
    Place &found = m_places[place(name, hash)];
    if (found.number >= 0)
        return found.number;
    const int number = static_cast<int>(m_ends.size());
    m_text += name;
    m_ends.push_back(static_cast<std::uint32_t>(m_text.size()));
    found = {markOf(hash), number};
    if (m_ends.size() * 4 > m_places.size() * 3)
        grow();
    return number;
}

void NameTable::grow()
{
    m_places = std::vector<Place>(m_places.size() * 2);
    for (int number = 0; number < static_cast<int>(m_ends.size()); ++number) {
        const std::uint64_t hash = hashOf(name(number));
        m_places[place(name(number), hash)] = {markOf(hash), number};
    }
}

} // namespace mel
