// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/array.h"

#include <string>
#include <vector>

namespace mel {

class Procedures;

// The names of all commands and global procedures, sorted. Kept, as catalogues walk over thousands
// of them again and again while few come and go.
class NameList
{
public:
    // Brings the list up to date. `others` are the names, sorted, of what is no procedure yet.
    void update(Procedures &procedures, std::vector<std::string> others);
    const Array<std::string> &names() const { return m_names; }

private:
    void remove(const std::string &name);
    void add(std::vector<std::string> names);

    Array<std::string> m_names;
    std::vector<std::string> m_others; // as they were last
};

} // namespace mel
