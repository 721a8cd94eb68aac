// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

// Many words, and where each first occurs in a text. Adding and searching take time linear in what
// they are given, however many words there are and whether or not they lie within each other.
class WordTree
{
public:
    // Returns what stands for the word. All are added before the search; none is empty.
    int add(const QString &word);
    void search(const QString &text);
    // The end (exclusive) of the first occurrence, -1 when there is none.
    int firstEnd(int word) const { return m_nodes[size_t(word)].firstEnd; }

private:
    // A beginning of one or more words.
    struct Node
    {
        QChar unit; // its last one
        int child = -1;
        int sibling = -1;
        int suffix = 0; // the longest other beginning that this one ends with
        int firstEnd = -1;
    };

    int child(int node, QChar unit) const;
    int childOrNew(int node, QChar unit);
    int longestBeginning(int node, QChar unit) const;
    void linkSuffixes();
    void noteEnd(int node, int end);

    std::vector<Node> m_nodes{Node()}; // the first is the empty beginning
};
