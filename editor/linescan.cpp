// SPDX-License-Identifier: MIT
#include "editor/linescan.h"

bool operator==(const Bracket &a, const Bracket &b)
{
    return a.character == b.character && a.column == b.column;
}

bool operator==(const FormatSpan &a, const FormatSpan &b)
{
    return a.start == b.start && a.length == b.length && a.category == b.category;
}

void LineScan::clear()
{
    state = 0;
    inComment = false;
    isAllCode = true;
    mixedCode.clear();
    brackets.clear();
    spans.clear();
}
