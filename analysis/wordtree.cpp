// SPDX-License-Identifier: MIT
#include "analysis/wordtree.h"

int WordTree::add(const QString &word)
{
    int node = 0;
    for (const QChar unit : word)
        node = childOrNew(node, unit);
    return node;
}

void WordTree::search(const QString &text)
{
    linkSuffixes();
    int node = 0;
    int end = 0;
    for (const QChar unit : text) {
        node = longestBeginning(node, unit);
        noteEnd(node, ++end);
    }
}

// -1 when no word goes on so. A list will do: names have few different units at one place.
int WordTree::child(int node, QChar unit) const
{
    int child = m_nodes[size_t(node)].child;
    while (child >= 0 && m_nodes[size_t(child)].unit != unit)
        child = m_nodes[size_t(child)].sibling;
    return child;
}

int WordTree::childOrNew(int node, QChar unit)
{
    const int known = child(node, unit);
    if (known >= 0)
        return known;
    const int added = int(m_nodes.size());
    Node fresh;
    fresh.unit = unit;
    fresh.sibling = m_nodes[size_t(node)].child;
    m_nodes.push_back(fresh);
    m_nodes[size_t(node)].child = added;
    return added;
}

// The longest beginning that is an end of the node's text and the unit; the empty one if need be.
int WordTree::longestBeginning(int node, QChar unit) const
{
    int next = child(node, unit);
    while (next < 0 && node > 0) {
        node = m_nodes[size_t(node)].suffix;
        next = child(node, unit);
    }
    return next < 0 ? 0 : next;
}

// "she" and "hers":  s-h-e   the suffix of "sh" is "h", that of "she" is "he"
//                    h-e-r-s
//
// Shorter beginnings first, for the longer ones build on them.
void WordTree::linkSuffixes()
{
    std::vector<int> nodes{0};
    for (size_t i = 0; i < nodes.size(); ++i) {
        const Node &parent = m_nodes[size_t(nodes[i])];
        for (int each = parent.child; each >= 0; each = m_nodes[size_t(each)].sibling) {
            Node &node = m_nodes[size_t(each)];
            node.suffix = nodes[i] == 0 ? 0 : longestBeginning(parent.suffix, node.unit);
            nodes.push_back(each);
        }
    }
}

// What ends there ends with its suffixes as well; one that was seen has noted its own.
void WordTree::noteEnd(int node, int end)
{
    while (node > 0 && m_nodes[size_t(node)].firstEnd < 0) {
        m_nodes[size_t(node)].firstEnd = end;
        node = m_nodes[size_t(node)].suffix;
    }
}
