// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

// Many words, and where each first occurs in a text. Adding and searching take time linear in what
// they are given, however many words there are and whether or not they lie within each other. All
// are kept in one tree of their beginnings, each of which knows where to go on when the next unit
// does not fit: at the longest other beginning that it ends with. For one list and one search.
class WordTree
{
public:
    // Returns what stands for the word. All are added before the search; none is empty.
    int add(const QString &word);
    // Looks for all of them in one pass.
    void search(const QString &text);
    // The end (exclusive) of the first occurrence, -1 when there is none.
    int firstEnd(int word) const { return m_nodes[size_t(word)].firstEnd; }

private:
    // A beginning of one or more words.
    struct Node
    {
        QChar unit;        // its last one
        int child = -1;    // the first beginning that is longer by one; -1: none
        int sibling = -1;  // the next one of the same parent; -1: none
        int suffix = 0;    // the longest other beginning that this one ends with
        int firstEnd = -1; // where it was first seen to end
    };

    int child(int node, QChar unit) const;
    int childOrNew(int node, QChar unit);
    int longestBeginning(int node, QChar unit) const;
    void linkSuffixes();
    void noteEnd(int node, int end);

    // Beginnings refer to each other by index: adding one moves them all. The first is the empty
    // one.
    std::vector<Node> m_nodes{Node()};
};
