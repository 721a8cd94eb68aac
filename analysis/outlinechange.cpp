// SPDX-License-Identifier: MIT
#include "analysis/outlinechange.h"

#include "analysis/outlinekinds.h"

#include <algorithm>

namespace {

bool hasSameShape(const OutlineItem &a, const OutlineItem &b)
{
    return a.kind == b.kind && a.depth == b.depth;
}

bool looksTheSame(const OutlineItem &a, const OutlineItem &b)
{
    return hasSameShape(a, b) && a.name == b.name;
}

int equalAtStart(const QList<OutlineItem> &before, const QList<OutlineItem> &after)
{
    const auto difference =
        std::mismatch(before.begin(), before.begin() + std::min(before.size(), after.size()),
                      after.begin(), looksTheSame);
    return int(difference.first - before.begin());
}

int equalAtEnd(const QList<OutlineItem> &before, const QList<OutlineItem> &after, int atMost)
{
    int count = 0;
    while (count < atMost &&
           looksTheSame(before[before.size() - 1 - count], after[after.size() - 1 - count]))
        ++count;
    return count;
}

} // namespace

std::vector<int> outlineParents(const QList<OutlineItem> &items)
{
    std::vector<int> parents;
    parents.reserve(items.size());
    std::vector<int> open; // items whose bodies have not ended, the innermost last
    for (int i = 0; i < int(items.size()); ++i) {
        const OutlineItem &item = items[i];
        while (!open.empty() && items[open.back()].depth >= item.depth)
            open.pop_back();
        parents.push_back(open.empty() ? -1 : open.back());
        if (outlineKindRow(item.kind).hasBody)
            open.push_back(i);
    }
    return parents;
}

OutlineChange outlineChange(const QList<OutlineItem> &before, const std::vector<int> &parentsBefore,
                            const QList<OutlineItem> &after, const std::vector<int> &parentsAfter)
{
    const int first = equalAtStart(before, after);
    const int shorter = int(std::min(before.size(), after.size()));
    const int atEnd = equalAtEnd(before, after, shorter - first);
    OutlineChange change = {first, int(before.size()) - atEnd, int(after.size()) - atEnd, false};
    const auto from = before.begin() + first;
    const auto to = before.begin() + change.oldEnd;
    change.onlyNames =
        change.oldEnd == change.newEnd && std::equal(from, to, after.begin() + first, hasSameShape);
    if (change.onlyNames)
        return change;
    // What stood below an item that is gone has to find its place anew. The first item that stands
    // where it stood has everything after it stand there too.
    const auto staysInPlace = [&] {
        const int parent = parentsBefore[change.oldEnd];
        return parent < first && parentsAfter[change.newEnd] == parent;
    };
    while (change.oldEnd < int(before.size()) && !staysInPlace()) {
        ++change.oldEnd;
        ++change.newEnd;
    }
    return change;
}
