// SPDX-License-Identifier: MIT
#include "workspace/edcodetabbar.h"

#include "resources/resources.h"

// The style's own cross is black, which nobody sees on a dark palette.
EdCodeTabBar::EdCodeTabBar(QWidget *parent) : QTabBar(parent)
{
    initResources();
    setStyleSheet(QLatin1String("QTabBar::close-button { image: url(:/icons/close.png); }"
                                "QTabBar::close-button:hover {"
                                " background: rgba(255, 255, 255, 40); border-radius: 2px; }"));
}

void EdCodeTabBar::mousePressEvent(QMouseEvent *event)
{
    QTabBar::mousePressEvent(event);
    emit tabBarSelected();
}
