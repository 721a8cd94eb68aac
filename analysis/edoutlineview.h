// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidget>

// The outline of the active script, in a dock of the window. Nothing is listed yet, which an empty
// view says.
class EdOutlineView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit EdOutlineView(QWidget *parent = nullptr);

protected:
    // Draws the hint over the empty tree.
    void paintEvent(QPaintEvent *event) override;
};
