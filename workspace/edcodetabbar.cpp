// SPDX-License-Identifier: MIT
#include "workspace/edcodetabbar.h"

EdCodeTabBar::EdCodeTabBar(QWidget *parent) : QTabBar(parent) {}

void EdCodeTabBar::mousePressEvent(QMouseEvent *event)
{
    QTabBar::mousePressEvent(event);
    emit tabBarSelected();
}
