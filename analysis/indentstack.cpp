// SPDX-License-Identifier: MIT
#include "analysis/indentstack.h"

namespace {

// By character: a tab and eight spaces are as wide, but not the same.
bool isSame(const SourceCursor &cursor, const Indent &a, const Indent &b)
{
    if (a.length != b.length)
        return false;
    for (int i = 0; i < a.length; ++i) {
        if (cursor.at(a.start + i) != cursor.at(b.start + i))
            return false;
    }
    return true;
}

} // namespace

// An indent that no block has empties the stack altogether: it differs from the bottom as well.
bool IndentStack::popTo(const SourceCursor &cursor, const Indent &indent)
{
    while (!m_indents.empty() && !isSame(cursor, m_indents.back(), indent))
        m_indents.pop_back();
    if (!m_indents.empty())
        return true;
    reset();
    return false;
}
