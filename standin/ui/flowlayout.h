// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>
#include <QList>

namespace standin {

// Items from left to right, in further rows where one is full, as shelves have them. Each item has
// its own preferred size. The layout owns its items.
class FlowLayout : public QLayout
{
public:
    explicit FlowLayout(QWidget *parent);
    ~FlowLayout() override;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    void setGeometry(const QRect &rect) override;

private:
    // Walks through the rows, moving the items or only measuring.
    int arrange(const QRect &rect, bool move) const;

    QList<QLayoutItem *> m_items;
};

} // namespace standin
