// SPDX-License-Identifier: MIT
#include "standin/mel/namelist.h"

#include "standin/mel/procedures.h"

#include <algorithm>
#include <iterator>

namespace mel {

namespace {

std::vector<std::string> difference(const std::vector<std::string> &of,
                                    const std::vector<std::string> &without)
{
    std::vector<std::string> left;
    std::set_difference(of.begin(), of.end(), without.begin(), without.end(),
                        std::back_inserter(left));
    return left;
}

} // namespace

void NameList::update(Procedures &procedures, std::vector<std::string> others)
{
    for (const std::string &gone : difference(m_others, others)) {
        if (!procedures.find(gone).global)
            remove(gone);
    }
    add(difference(others, m_others));
    add(procedures.takeNewNames());
    m_others = std::move(others);
}

void NameList::remove(const std::string &name)
{
    std::vector<std::string> &names = m_names.edit();
    names.erase(std::lower_bound(names.begin(), names.end(), name));
}

void NameList::add(std::vector<std::string> added)
{
    if (added.empty())
        return; // the list may be shared
    std::sort(added.begin(), added.end());
    std::vector<std::string> &names = m_names.edit();
    const auto count = static_cast<std::ptrdiff_t>(names.size());
    for (std::string &name : added) {
        // A command and a procedure may have one name.
        if (!std::binary_search(names.begin(), names.begin() + count, name))
            names.push_back(std::move(name));
    }
    std::inplace_merge(names.begin(), names.begin() + count, names.end());
}

} // namespace mel
