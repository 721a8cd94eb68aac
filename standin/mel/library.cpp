// SPDX-License-Identifier: MIT
#include "standin/mel/library.h"

#include "standin/mel/librarytexts.h"

#include <iterator>

namespace mel {

namespace {

// Goes on behind what was put in, so a replacement that holds `old` is safe.
std::string replaced(std::string text, const std::string &old, const std::string &by)
{
    for (size_t at = text.find(old); at != std::string::npos; at = text.find(old, at + by.size()))
        text.replace(at, old.size(), by);
    return text;
}

// A path as an installation would have it; whatIs shows it, nothing is read from there.
Library::Script script(const std::string &name, std::string text)
{
    return {std::move(text), "scripts/others/" + name + ".mel"};
}

} // namespace

// Texts only; nothing is compiled before it is called.
Library::Library()
{
    for (size_t i = 0; i < libraryTextCount; ++i)
        m_scripts.emplace(libraryTexts[i].name, script(libraryTexts[i].name, libraryTexts[i].text));
    for (const std::string type : {"string", "int", "float"}) {
        for (size_t i = 0; i < arrayLibraryTextCount; ++i) {
            const std::string name = type + arrayLibraryTexts[i].name;
            m_scripts.emplace(name,
                              script(name, replaced(arrayLibraryTexts[i].text, "TYPE", type)));
        }
    }
}

const Library::Script *Library::find(const std::string &name) const
{
    const auto found = m_scripts.find(name);
    return found == m_scripts.end() ? nullptr : &found->second;
}

std::vector<std::string> Library::names() const
{
    std::vector<std::string> all;
    for (const auto &entry : m_scripts)
        all.push_back(entry.first);
    return all;
}

std::optional<Library::Script> Library::take(const std::string &name)
{
    const auto found = m_scripts.find(name);
    if (found == m_scripts.end())
        return std::nullopt;
    Script script = std::move(found->second);
    m_scripts.erase(found);
    return script;
}

void Library::put(const std::string &name, const Script &script)
{
    m_scripts[name] = script;
}

} // namespace mel
