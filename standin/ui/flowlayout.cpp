// SPDX-License-Identifier: MIT
#include "standin/ui/flowlayout.h"

#include <algorithm>

namespace standin {

FlowLayout::FlowLayout(QWidget *parent) : QLayout(parent)
{
    // In pixels, both ways.
    setSpacing(2);
}

FlowLayout::~FlowLayout()
{
    // The items only; their widgets belong to the parent widget.
    while (QLayoutItem *item = takeAt(0))
        delete item;
}

void FlowLayout::addItem(QLayoutItem *item)
{
    m_items << item;
}

int FlowLayout::count() const
{
    return int(m_items.size());
}

QLayoutItem *FlowLayout::itemAt(int index) const
{
    return m_items.value(index);
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

int FlowLayout::heightForWidth(int width) const
{
    // Measuring only, so the height of the rectangle does not matter.
    return arrange(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    // As wide as the widest item: below that even one column does not fit.
    for (const QLayoutItem *item : m_items)
        size = size.expandedTo(item->minimumSize());
    int left, top, right, bottom;
    getContentsMargins(&left, &top, &right, &bottom);
    return size + QSize(left + right, top + bottom);
}

QSize FlowLayout::sizeHint() const
{
    return minimumSize();
}

void FlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    arrange(rect, true);
}

// Returns the height that the rows take at that width.
int FlowLayout::arrange(const QRect &rect, bool move) const
{
    int left, top, right, bottom;
    getContentsMargins(&left, &top, &right, &bottom);
    const QRect area = rect.adjusted(left, top, -right, -bottom);
    QPoint position = area.topLeft();
    int rowHeight = 0;
    for (QLayoutItem *item : m_items) {
        // Hidden widgets leave no gap.
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        // right() is the last pixel inside. An item wider than the row stands alone in one.
        if (position.x() + size.width() > area.right() + 1 && rowHeight > 0) {
            position = QPoint(area.x(), position.y() + rowHeight + spacing());
            rowHeight = 0;
        }
        if (move)
            item->setGeometry(QRect(position, size));
        position.rx() += size.width() + spacing();
        rowHeight = std::max(rowHeight, size.height());
    }
    return position.y() + rowHeight + bottom - rect.y();
}

} // namespace standin
