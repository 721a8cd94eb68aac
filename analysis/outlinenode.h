// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/outlineitem.h"
#include "analysis/outlinekinds.h"
#include "analysis/positionmap.h"

#include <QIcon>
#include <QList>
#include <QTreeWidgetItem>

// What all nodes of an outline show a part of.
struct OutlineContents
{
    QList<OutlineItem> items; // in the order of the text
    PositionMap edits;        // of the text since the items were found
    QIcon icons[outlineKindCount];
    bool byName = false; // the order of the nodes, else that of the text

    // Of the item's name in the text as it is now.
    PositionMap::Range range(int index) const;
    bool isGuess(int index) const;
};

// A row of the outline's tree. Thousands are made while the user waits, so it holds nothing but the
// index of its item and looks up what it is asked; what setData() is given is not kept.
class OutlineNode : public QTreeWidgetItem
{
public:
    // `contents` must outlive the node.
    OutlineNode(int index, const OutlineContents *contents);

    // The name and its icon in column 0, under Qt::UserRole the name's start in column 1 and its
    // end in column 2.
    QVariant data(int column, int role) const override;
    bool operator<(const QTreeWidgetItem &other) const override;

    const OutlineItem &item() const { return m_contents->items[m_index]; }
    int index() const { return m_index; }
    void setIndex(int index) { m_index = index; }
    // Has the tree show the name anew.
    void update() { emitDataChanged(); }

    // As the tree was told: to ask it takes long.
    bool isShown = true;

private:
    int m_index;
    const OutlineContents *m_contents;
};
