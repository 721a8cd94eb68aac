// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace mel {

// Procedures that come with the language, written in MEL. Each is compiled when it is first used.
// Nothing here is compiled code: a script leaves the table once the procedure table has taken it
// over.
class Library
{
public:
    struct Script
    {
        std::string text;
        std::string origin; // the path that whatIs names
    };

    Library();

    const Script *find(const std::string &name) const; // null when there is none of that name
    std::vector<std::string> names() const;
    size_t size() const { return m_scripts.size(); }
    // The text of a procedure that is to be compiled now; gives it out once.
    std::optional<Script> take(const std::string &name);
    // Back again, when compiling it failed.
    void put(const std::string &name, const Script &script);

private:
    std::unordered_map<std::string, Script> m_scripts;
};

} // namespace mel
