// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/outlineitem.h"

#include <QList>

#include <vector>

// For each item the index of the one it is listed under, or -1 at top level: the last one before it
// that has a body at the next smaller depth at which there is one. A body at some depth ends those
// at greater depths before it.
std::vector<int> outlineParents(const QList<OutlineItem> &items);

// What turns one list into another, positions left aside: the items from `first` to `oldEnd` give
// way to those from `first` to `newEnd`, ends exclusive. All others are the same, listed under the
// same items.
struct OutlineChange
{
    int first;
    int oldEnd;
    int newEnd;
    bool onlyNames; // as many items as before, each of the kind and at the depth of its predecessor

    bool isEmpty() const { return first == oldEnd && first == newEnd; }
};

OutlineChange outlineChange(const QList<OutlineItem> &before, const std::vector<int> &parentsBefore,
                            const QList<OutlineItem> &after, const std::vector<int> &parentsAfter);
