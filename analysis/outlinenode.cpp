// SPDX-License-Identifier: MIT
#include "analysis/outlinenode.h"

PositionMap::Range OutlineContents::range(int index) const
{
    const OutlineItem &item = items[index];
    return edits.now({item.position, item.position + int(item.name.size())});
}

bool OutlineContents::isGuess(int index) const
{
    const OutlineItem &item = items[index];
    return edits.isGuess({item.position, item.position + int(item.name.size())});
}

OutlineNode::OutlineNode(int index, const OutlineContents *contents)
    : QTreeWidgetItem(UserType), m_index(index), m_contents(contents)
{
}

QVariant OutlineNode::data(int column, int role) const
{
    if (column == 0 && role == Qt::DisplayRole)
        return item().name;
    if (column == 0 && role == Qt::DecorationRole)
        return m_contents->icons[outlineKindNumber(item().kind)];
    if (column == 1 && role == Qt::UserRole)
        return m_contents->range(m_index).start;
    if (column == 2 && role == Qt::UserRole)
        return m_contents->range(m_index).end;
    return QVariant();
}

// Equal names stand in the order of the text.
bool OutlineNode::operator<(const QTreeWidgetItem &other) const
{
    const OutlineNode &node = static_cast<const OutlineNode &>(other);
    int order = 0;
    if (m_contents->byName) {
        order = QString::compare(item().name, node.item().name, Qt::CaseInsensitive);
        if (order == 0)
            order = QString::compare(item().name, node.item().name);
    }
    return order != 0 ? order < 0 : m_index < node.m_index;
}
