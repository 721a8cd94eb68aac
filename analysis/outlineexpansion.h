// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>
#include <QString>

class QTreeWidgetItem;

// Which nodes of an outline are expanded. They are known by their texts, those below others by the
// parent's text followed by their own, so that it outlives them.
class OutlineExpansion
{
public:
    bool isEmpty() const { return m_topLevel.isEmpty() && m_deeper.isEmpty(); }
    bool contains(const QTreeWidgetItem &node) const;
    void add(const QTreeWidgetItem &node);

    void unite(const OutlineExpansion &other);
    void subtract(const OutlineExpansion &other);

private:
    QSet<QString> m_topLevel;
    QSet<QString> m_deeper;
};
