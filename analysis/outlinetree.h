// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/outlinechange.h"
#include "analysis/outlineexpansion.h"
#include "analysis/outlinenode.h"

#include <vector>

class QModelIndex;
class QTreeWidget;

// Where the caret is, and the line around it.
struct OutlineCaret
{
    int position;
    int lineStart;
    int lineEnd;
};

// Keeps a tree the image of a list of outline items. A new list touches only what differs from the
// one before; selection, expansion and scroll position of the rest stay.
class OutlineTree
{
public:
    // The tree must outlive this object, and is filled by nobody else.
    explicit OutlineTree(QTreeWidget *tree);
    ~OutlineTree();
    OutlineTree(const OutlineTree &) = delete;
    OutlineTree &operator=(const OutlineTree &) = delete;

    // Of another text: nothing is kept.
    void fill(const QList<OutlineItem> &items, const OutlineExpansion &expansion);
    // Of the same text after edits.
    void update(const QList<OutlineItem> &items);
    // Whether the items are those of the last list, positions left aside.
    bool shows(const QList<OutlineItem> &items) const;
    // Of the text; until the next list the nodes' positions move with it.
    void contentsChange(int position, int charsRemoved, int charsAdded);

    // By name, or in the order of the text.
    void setSorted(bool byName);
    // Hides and shows what the preferences say.
    void updateHidden();
    // Also of nodes that are gone for now: a bracket or quote that is still to be closed takes
    // much of an outline away.
    const OutlineExpansion &expansion();

    // The innermost item whose name or body the caret is in, as far as the items alone tell, or
    // what of its parents can be seen; null for none. Takes logarithmic time.
    QTreeWidgetItem *visibleNodeAt(const OutlineCaret &caret) const;
    // Whether edits have left it unknown, until the next list, where the node's name is, or what
    // is around the caret.
    bool isGuess(const QTreeWidgetItem &node) const;
    bool isGuess(const OutlineCaret &caret) const;

private:
    typedef std::vector<int> Indexes;

    void take(const QList<OutlineItem> &items, const Indexes &parents);
    void rename(const QList<OutlineItem> &items, const Indexes &parents,
                const OutlineChange &change);
    void replace(const QList<OutlineItem> &items, const Indexes &parents,
                 const OutlineChange &change);
    void removeNodes(int first, int end);
    void insertNodes(int first, int end);
    void insertRows(QTreeWidgetItem *parent, const QList<QTreeWidgetItem *> &nodes);
    int rowFor(const QTreeWidgetItem &parent, int index) const;
    OutlineNode *firstNodeInView() const;
    void scrollToTop(OutlineNode *node);
    void scrollToAwaitedTop(int first, int end);
    void rememberExpansion();
    void expandNodes(int first, int end);
    int itemAt(const OutlineCaret &caret) const;
    template <typename Visit>
    void visitRows(QTreeWidgetItem *parent, const QModelIndex &parentIndex,
                   const Visit &visit) const;

    QTreeWidget *m_tree;
    OutlineContents m_contents;
    OutlineExpansion m_expansion; // as it was when last remembered
    // The text, below that of its parent, of the upmost node in view that is gone for now; empty
    // for none. Where the view is then tells whether the user has gone elsewhere.
    QString m_awaitedTop;
    int m_scrollWithoutTop = 0;
    // For each item:
    std::vector<OutlineNode *> m_nodes; // owned by the tree
    Indexes m_parents;
    Indexes m_starts; // the highest position so far; a list of imports may be in disorder
};
