// SPDX-License-Identifier: MIT
#pragma once

#include <QTabBar>

// The tabs of one pane, which owns it and does the dragging.
class EdCodeTabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit EdCodeTabBar(QWidget *parent = nullptr);

signals:
    // A button of the mouse went down on it.
    void tabBarSelected();

protected:
    void mousePressEvent(QMouseEvent *event) override;
};
