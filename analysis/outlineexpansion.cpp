// SPDX-License-Identifier: MIT
#include "analysis/outlineexpansion.h"

#include <QTreeWidgetItem>

bool OutlineExpansion::contains(const QTreeWidgetItem &node) const
{
    const QTreeWidgetItem *parent = node.parent();
    return parent ? m_deeper.contains(parent->text(0) + node.text(0))
                  : m_topLevel.contains(node.text(0));
}

void OutlineExpansion::add(const QTreeWidgetItem &node)
{
    if (const QTreeWidgetItem *parent = node.parent())
        m_deeper.insert(parent->text(0) + node.text(0));
    else
        m_topLevel.insert(node.text(0));
}

void OutlineExpansion::unite(const OutlineExpansion &other)
{
    m_topLevel.unite(other.m_topLevel);
    m_deeper.unite(other.m_deeper);
}

void OutlineExpansion::subtract(const OutlineExpansion &other)
{
    m_topLevel.subtract(other.m_topLevel);
    m_deeper.subtract(other.m_deeper);
}
