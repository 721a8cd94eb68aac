// SPDX-License-Identifier: MIT
#pragma once

#include "compat/tabbar.h"

// The tabs of one pane, which owns it and does the dragging. Of long texts both ends are seen.
class EdCodeTabBar : public compat::TabBar
{
    Q_OBJECT

public:
    explicit EdCodeTabBar(QWidget *parent = nullptr);

    // For many tabs at once, into a bar that is hidden: otherwise each has all that are there
    // already laid out several times. Meanwhile sizes are wrong.
    void beginFilling();
    void endFilling();

signals:
    // A button of the mouse went down on it.
    void tabBarSelected();

protected:
    void showEvent(QShowEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    QSize tabSizeHint(int tab) const override;

private:
    bool m_isFilling = false;
    bool m_wasClosable = false; // before filling
};
