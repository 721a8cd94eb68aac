// SPDX-License-Identifier: MIT
#include "editor/scannerrules.h"

ScannerRules::ScannerRules(const std::vector<Enclosure> &enclosures,
                           const std::vector<std::string_view> &keywords, EditorText numberCategory)
    : m_enclosures(enclosures), m_keywords(keywords), m_numberCategory(numberCategory)
{
    for (ushort unit = 0; unit < 0x80; ++unit) {
        if (isNameUnit(unit))
            m_kinds[unit] = Name;
    }
    for (const char bracket : std::string_view("(){}[]"))
        m_kinds[static_cast<unsigned char>(bracket)] = Bracket;
    for (const Enclosure &each : m_enclosures)
        m_kinds[static_cast<unsigned char>(*each.open)] = Opener; // no bracket opens one
    indexKeywords();
}

// One entry more than there are units, so that the last unit has an end as well.
void ScannerRules::indexKeywords()
{
    size_t keyword = 0;
    for (size_t unit = 0; unit <= 0x80; ++unit) {
        while (keyword < m_keywords.size() && size_t(m_keywords[keyword].front()) < unit)
            ++keyword;
        m_firstKeyword[unit] = static_cast<unsigned char>(keyword);
    }
}

const Enclosure *ScannerRules::enclosureLeftOpen(int state) const
{
    if (state <= 0)
        return nullptr;
    for (const Enclosure &each : m_enclosures) {
        if (each.state == state)
            return &each;
    }
    return nullptr;
}

const Enclosure *ScannerRules::enclosureAt(const SourceCursor &line, int position) const
{
    for (const Enclosure &each : m_enclosures) {
        if (line.startsWith(each.open, position))
            return &each;
    }
    return nullptr;
}

// Tries the few keywords that begin like the word, and compares where the line lies.
bool ScannerRules::isKeyword(const SourceCursor &line, int start, int end) const
{
    const ushort first = line.at(start);
    for (size_t i = m_firstKeyword[first]; i < m_firstKeyword[first + 1]; ++i) {
        const std::string_view keyword = m_keywords[i];
        if (int(keyword.size()) != end - start)
            continue;
        size_t same = 1; // the first unit has chosen the keyword
        while (same < keyword.size() && line.at(start + int(same)) == ushort(keyword[same]))
            ++same;
        if (same == keyword.size())
            return true;
    }
    return false;
}
