// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/sourcecursor.h"
#include "preferences/textformats.h"

#include <string_view>
#include <vector>

// A string or comment of a language.
struct Enclosure
{
    // How it goes on at the end of a line that does not close it.
    enum Extent { ThisLine, AfterBackslash, ManyLines };

    const char *open;
    const char *close; // null when the end of the line closes it
    EditorText category;
    Extent extent;
    int state; // of a line that ends inside it
    bool isComment;
};

// What of a language is a table: its enclosures, its keywords, and what an ASCII unit can begin.
// Does not change once it is made; one for each language, shared by its scanners.
class ScannerRules
{
public:
    // The longer of two enclosures that begin alike comes first; the keywords are sorted.
    ScannerRules(const std::vector<Enclosure> &enclosures,
                 const std::vector<std::string_view> &keywords, EditorText numberCategory);

    // Opener: of an enclosure, perhaps. Foreign: beyond ASCII.
    enum UnitKind : unsigned char { Other, Name, Bracket, Opener, Foreign };

    // What the scan asks of every unit of code, hence a table.
    UnitKind kindOf(ushort unit) const { return unit < 0x80 ? m_kinds[unit] : Foreign; }
    const std::vector<std::string_view> &keywords() const { return m_keywords; } // sorted
    EditorText numberCategory() const { return m_numberCategory; }

    // The one in which a line with this state ends; null when it ends in code.
    const Enclosure *enclosureLeftOpen(int state) const;
    // The one that begins there; null when none does.
    const Enclosure *enclosureAt(const SourceCursor &line, int position) const;
    // The word lies inside the line and is of ASCII characters.
    bool isKeyword(const SourceCursor &line, int start, int end) const;

private:
    void indexKeywords();

    std::vector<Enclosure> m_enclosures;
    std::vector<std::string_view> m_keywords;
    EditorText m_numberCategory;
    // By the unit with which it begins: those with "d" are m_firstKeyword['d'] up to, not
    // including, m_firstKeyword['d' + 1]. A byte holds the index, since no language has 256 of
    // them.
    unsigned char m_firstKeyword[0x81] = {};
    UnitKind m_kinds[0x80] = {};
};
