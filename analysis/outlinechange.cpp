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
    std::vector<int> open; // items with bodies, depths ascending
    for (int i = 0; i < int(items.size()); ++i) {
        const OutlineItem &item = items[i];
        const auto end = std::find_if(open.begin(), open.end(), [&](int parent) {
            return items[parent].depth >= item.depth;
        });
        parents.push_back(end == open.begin() ? -1 : *(end - 1));
        if (outlineKindRow(item.kind).hasBody) {
            open.erase(end, open.end());
            open.push_back(i);
        }
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
    // What stood below an item that is gone has to find its place anew, and all before it with it.
    const int growth = change.newEnd - change.oldEnd;
    for (int i = change.oldEnd; i < int(before.size()); ++i) {
        const int parent = parentsBefore[i];
        const int expected = parent < first ? parent : parent + growth;
        const bool isBelowGone = parent >= first && parent < change.oldEnd;
        if (isBelowGone || parentsAfter[i + growth] != expected) {
            change.oldEnd = i + 1;
            change.newEnd = i + 1 + growth;
        }
    }
    return change;
}
