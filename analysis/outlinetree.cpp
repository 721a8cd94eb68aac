// SPDX-License-Identifier: MIT
#include "analysis/outlinetree.h"

#include "compat/icon.h"

#include <QScrollBar>
#include <QTreeWidget>

#include <algorithm>

namespace {

OutlineNode *toNode(QTreeWidgetItem *item)
{
    return static_cast<OutlineNode *>(item);
}

QString pathOf(const QTreeWidgetItem &node)
{
    const QTreeWidgetItem *parent = node.parent();
    return (parent ? parent->text(0) : QString()) + QLatin1Char('/') + node.text(0);
}

// While it lives, a sorted tree is not sorted at every step, but once at the end.
class SortingPause
{
public:
    explicit SortingPause(QTreeWidget *tree) : m_tree(tree), m_isSorted(tree->isSortingEnabled())
    {
        if (m_isSorted)
            m_tree->setSortingEnabled(false);
    }
    ~SortingPause()
    {
        if (m_isSorted)
            m_tree->setSortingEnabled(true);
    }
    SortingPause(const SortingPause &) = delete;
    SortingPause &operator=(const SortingPause &) = delete;

private:
    QTreeWidget *m_tree;
    bool m_isSorted;
};

} // namespace

OutlineTree::OutlineTree(QTreeWidget *tree) : m_tree(tree)
{
    for (int kind = 1; kind < outlineKindCount; ++kind)
        m_contents.icons[kind] = compat::icon(QLatin1String(outlineKindRow(kind).icon));
}

// The nodes look up what they show in this object.
OutlineTree::~OutlineTree()
{
    m_tree->clear();
}

void OutlineTree::fill(const QList<OutlineItem> &items, const OutlineExpansion &expansion)
{
    const OutlineChange everything = {0, int(m_nodes.size()), int(items.size()), false};
    m_expansion = expansion;
    m_tree->verticalScrollBar()->setValue(0); // there is no place to keep
    m_awaitedTop.clear();
    replace(items, outlineParents(items), everything);
}

void OutlineTree::update(const QList<OutlineItem> &items)
{
    const Indexes parents = outlineParents(items);
    const OutlineChange change = outlineChange(m_contents.items, m_parents, items, parents);
    const int changed = change.oldEnd + change.newEnd - 2 * change.first;
    if (changed == 0)
        return take(items, parents);
    const bool keepsLittle = changed > int(m_nodes.size());
    if (change.onlyNames && !keepsLittle)
        return rename(items, parents, change);
    rememberExpansion();
    const OutlineChange everything = {0, int(m_nodes.size()), int(items.size()), false};
    replace(items, parents, keepsLittle ? everything : change); // all of it: cheaper then
}

bool OutlineTree::shows(const QList<OutlineItem> &items) const
{
    return outlineChange(m_contents.items, m_parents, items, outlineParents(items)).isEmpty();
}

void OutlineTree::contentsChange(int position, int charsRemoved, int charsAdded)
{
    m_contents.edits.contentsChange(position, charsRemoved, charsAdded);
}

void OutlineTree::take(const QList<OutlineItem> &items, const Indexes &parents)
{
    m_contents.items = items;
    m_contents.edits.clear();
    m_parents = parents;
    m_starts.clear();
    for (const OutlineItem &item : items)
        m_starts.push_back(m_starts.empty() ? item.position
                                            : std::max(m_starts.back(), item.position));
}

void OutlineTree::rename(const QList<OutlineItem> &items, const Indexes &parents,
                         const OutlineChange &change)
{
    const QList<OutlineItem> before = m_contents.items;
    SortingPause pause(m_tree);
    take(items, parents);
    for (int i = change.first; i < change.newEnd; ++i) {
        if (before[i].name != items[i].name)
            m_nodes[i]->update();
    }
}

void OutlineTree::replace(const QList<OutlineItem> &items, const Indexes &parents,
                          const OutlineChange &change)
{
    OutlineNode *top = firstNodeInView();
    if (m_tree->verticalScrollBar()->value() != m_scrollWithoutTop)
        m_awaitedTop.clear();
    if (top && top->index() >= change.first && top->index() < change.oldEnd) {
        if (m_awaitedTop.isEmpty())
            m_awaitedTop = pathOf(*top);
        top = nullptr;
    }
    {
        SortingPause pause(m_tree);
        removeNodes(change.first, change.oldEnd);
        take(items, parents);
        insertNodes(change.first, change.newEnd);
    }
    expandNodes(change.first, change.newEnd);
    updateHidden();
    if (top) // rows that came or went above it do not move what the user looks at
        scrollToTop(top);
    if (!m_awaitedTop.isEmpty())
        scrollToAwaitedTop(change.first, change.newEnd);
}

// Not to the left, as the tree would.
void OutlineTree::scrollToTop(OutlineNode *node)
{
    const int left = m_tree->horizontalScrollBar()->value();
    m_tree->scrollToItem(node, QTreeWidget::PositionAtTop);
    m_tree->horizontalScrollBar()->setValue(left);
}

void OutlineTree::scrollToAwaitedTop(int first, int end)
{
    for (int i = first; i < end; ++i) {
        if (pathOf(*m_nodes[i]) != m_awaitedTop)
            continue;
        m_awaitedTop.clear();
        return scrollToTop(m_nodes[i]);
    }
    m_tree->doItemsLayout(); // or the view is still where it will not stay
    m_scrollWithoutTop = m_tree->verticalScrollBar()->value();
}

// Null at the upper end of the tree, where new rows may come into view.
OutlineNode *OutlineTree::firstNodeInView() const
{
    return m_tree->verticalScrollBar()->value() == 0 ? nullptr : toNode(m_tree->itemAt(0, 0));
}

// The children of these nodes are among them.
void OutlineTree::removeNodes(int first, int end)
{
    const QTreeWidgetItem *current = m_tree->currentItem();
    const auto from = m_nodes.begin() + first;
    const auto to = m_nodes.begin() + end;
    if (end - first == int(m_nodes.size())) {
        m_tree->clear();
    } else {
        // Else the tree would make a neighbour the current item, and then the neighbour's.
        if (std::find(from, to, current) != to)
            m_tree->selectionModel()->clear();
        for (int i = end - 1; i >= first; --i) {
            if (m_parents[i] < first)
                delete m_nodes[i];
        }
    }
    m_nodes.erase(from, to);
}

void OutlineTree::insertNodes(int first, int end)
{
    m_nodes.insert(m_nodes.begin() + first, end - first, nullptr);
    for (int i = end; i < int(m_nodes.size()); ++i)
        m_nodes[i]->setIndex(i);
    QTreeWidgetItem *const root = m_tree->invisibleRootItem();
    QTreeWidgetItem *parent = root;
    QList<QTreeWidgetItem *> rows; // to be inserted under the parent in one go
    for (int i = first; i < end; ++i) {
        m_nodes[i] = new OutlineNode(i, &m_contents);
        if (m_parents[i] >= first) { // which is not in the tree yet, so that nobody is told
            m_nodes[m_parents[i]]->addChild(m_nodes[i]);
            continue;
        }
        QTreeWidgetItem *const itsParent = m_parents[i] < 0 ? root : m_nodes[m_parents[i]];
        if (itsParent != parent) {
            insertRows(parent, rows);
            rows.clear();
            parent = itsParent;
        }
        rows << m_nodes[i];
    }
    insertRows(parent, rows);
}

void OutlineTree::insertRows(QTreeWidgetItem *parent, const QList<QTreeWidgetItem *> &nodes)
{
    if (!nodes.isEmpty())
        parent->insertChildren(rowFor(*parent, toNode(nodes.first())->index()), nodes);
}

int OutlineTree::rowFor(const QTreeWidgetItem &parent, int index) const
{
    if (m_contents.byName)
        return parent.childCount(); // anywhere, since the tree will be sorted
    int first = 0;
    for (int end = parent.childCount(); first < end;) {
        const int middle = (first + end) / 2;
        if (toNode(parent.child(middle))->index() < index)
            first = middle + 1;
        else
            end = middle;
    }
    return first;
}

void OutlineTree::setSorted(bool byName)
{
    m_contents.byName = byName;
    m_tree->setSortingEnabled(byName); // which sorts, when it is switched on
    if (!byName)
        m_tree->sortItems(0, Qt::AscendingOrder); // into the order of the text
}

// By row: to ask the tree for the row of a node may take as long as the tree is.
template <typename Visit>
void OutlineTree::visitRows(QTreeWidgetItem *parent, const QModelIndex &parentIndex,
                            const Visit &visit) const
{
    for (int row = 0; row < parent->childCount(); ++row) {
        OutlineNode *node = toNode(parent->child(row));
        visit(node, row, parentIndex);
        if (node->childCount() > 0)
            visitRows(node, m_tree->model()->index(row, 0, parentIndex), visit);
    }
}

void OutlineTree::updateHidden()
{
    const auto hide = [this](OutlineNode *node, int row, const QModelIndex &parent) {
        const bool isShown = !isHiddenKind(node->item().kind);
        if (isShown == node->isShown)
            return;
        node->isShown = isShown;
        m_tree->setRowHidden(row, parent, !isShown);
    };
    visitRows(m_tree->invisibleRootItem(), QModelIndex(), hide);
}

const OutlineExpansion &OutlineTree::expansion()
{
    rememberExpansion();
    return m_expansion;
}

void OutlineTree::rememberExpansion()
{
    OutlineExpansion expanded;
    OutlineExpansion collapsed;
    const auto add = [&](const OutlineNode *node, int row, const QModelIndex &parent) {
        if (node->childCount() == 0)
            return;
        const bool isExpanded = m_tree->isExpanded(m_tree->model()->index(row, 0, parent));
        (isExpanded ? expanded : collapsed).add(*node);
    };
    visitRows(m_tree->invisibleRootItem(), QModelIndex(), add);
    m_expansion.subtract(collapsed);
    m_expansion.unite(expanded);
}

void OutlineTree::expandNodes(int first, int end)
{
    if (m_expansion.isEmpty())
        return;
    const auto expand = [&](const OutlineNode *node, int row, const QModelIndex &parent) {
        if (node->childCount() > 0 && node->index() >= first && node->index() < end &&
            m_expansion.contains(*node))
            m_tree->setExpanded(m_tree->model()->index(row, 0, parent), true);
    };
    visitRows(m_tree->invisibleRootItem(), QModelIndex(), expand);
}

QTreeWidgetItem *OutlineTree::visibleNodeAt(const OutlineCaret &caret) const
{
    const int index = itemAt(caret);
    OutlineNode *visible = index < 0 ? nullptr : m_nodes[index];
    for (OutlineNode *node = visible; node; node = toNode(node->parent())) {
        OutlineNode *parent = toNode(node->parent());
        if (!node->isShown || (parent && !parent->isExpanded()))
            visible = parent;
    }
    return visible;
}

bool OutlineTree::isGuess(const QTreeWidgetItem &node) const
{
    return m_contents.isGuess(static_cast<const OutlineNode &>(node).index());
}

// The items on both sides: the caret may be in what came in the place of either.
bool OutlineTree::isGuess(const OutlineCaret &caret) const
{
    const int index = itemAt(caret);
    const int next = index + 1;
    return (index >= 0 && m_contents.isGuess(index)) ||
           (next < int(m_nodes.size()) && m_contents.isGuess(next));
}

int OutlineTree::itemAt(const OutlineCaret &caret) const
{
    const PositionMap &edits = m_contents.edits;
    const auto isBehind = [&](int position, int start) { return position < edits.now(start); };
    const auto next = std::upper_bound(m_starts.begin(), m_starts.end(), caret.position, isBehind);
    const int index = int(next - m_starts.begin()) - 1;
    const bool beginsAbove = index < 0 || edits.now(m_starts[index]) < caret.lineStart;
    // def foo():
    //  |             the first name on a line has the line from its start
    if (beginsAbove && next != m_starts.end() && edits.now(*next) <= caret.lineEnd)
        return index + 1;
    const bool goesOn = index >= 0 && outlineKindRow(m_contents.items[index].kind).hasBody;
    return index < 0 || goesOn || !beginsAbove ? index : m_parents[index];
}
