// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/sourcecursor.h"

#include <vector>

// A stretch of tabs and spaces at the start of a line of the parsed text, kept as a place in it.
struct Indent
{
    int start = 0; // 0-based, in UTF-16 units
    int length = 0;
    int width = 0;        // 8 for a tab wherever it stands, 1 for a space
    bool isMixed = false; // holds both
};

// The indents of the open blocks, outermost first; at the bottom the empty one. Good for the text
// that it was filled from, which popTo() reads again.
class IndentStack
{
public:
    void reset() { m_indents.assign(1, Indent()); }

    // Of the innermost block, 0 outside of all.
    int topWidth() const { return m_indents.back().width; }
    void push(const Indent &indent) { m_indents.push_back(indent); }
    // Closes the blocks down to the one that is indented with the very same characters. False, and
    // only the empty indent is left, when there is none.
    bool popTo(const SourceCursor &cursor, const Indent &indent);
    // How many blocks are open.
    int depth() const { return int(m_indents.size()) - 1; }

private:
    std::vector<Indent> m_indents{Indent()}; // never empty between calls
};
