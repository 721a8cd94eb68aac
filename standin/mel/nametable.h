// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mel {

// Numbers names from 0 on, in the order of their arrival. Compact, as catalogues look up thousands
// of them in a row: what that costs is the memory it touches, hence no node of its own for each.
class NameTable
{
public:
    NameTable();

    // -1 for a name that was not added.
    int find(std::string_view name) const;
    // Its number, a new one where it had none.
    int add(std::string_view name);

private:
    struct Place
    {
        std::uint32_t mark = 0; // the half of the hash that did not choose the place
        int number = -1;        // free
    };

    // Where the name stands, or else would stand.
    size_t place(std::string_view name, std::uint64_t hash) const;
    std::string_view name(int number) const;
    void grow();

    std::vector<Place> m_places;       // a power of two, a quarter of them free
    std::string m_text;                // the names one behind the other
    std::vector<std::uint32_t> m_ends; // of each in the text
};

} // namespace mel
