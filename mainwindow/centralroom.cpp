// SPDX-License-Identifier: MIT
#include "mainwindow/centralroom.h"

#include "mainwindow/visibility.h"

#include <QDockWidget>
#include <QLayout>
#include <QMainWindow>

namespace {

// Not one that floats, or lies behind another dock: Qt keeps those outside of the window.
bool isSeenIn(const QMainWindow &window, const QDockWidget &dock)
{
    return dock.isVisible() && !dock.isFloating() && window.rect().intersects(dock.geometry());
}

bool isAtSide(const QMainWindow &window, QDockWidget *dock)
{
    const Qt::DockWidgetArea area = window.dockWidgetArea(dock);
    return area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea;
}

bool hasAnyAboveOrBelow(const QMainWindow &window, const DockArray<QDockWidget *> &docks)
{
    for (QDockWidget *dock : docks) {
        if (isSeenIn(window, *dock) && !isAtSide(window, dock))
            return true;
    }
    return false;
}

void giveCornersToSides(QMainWindow *window, bool toSides)
{
    const Qt::DockWidgetArea above = Qt::TopDockWidgetArea;
    const Qt::DockWidgetArea below = Qt::BottomDockWidgetArea;
    const Qt::DockWidgetArea left = Qt::LeftDockWidgetArea;
    const Qt::DockWidgetArea right = Qt::RightDockWidgetArea;
    window->setCorner(Qt::TopLeftCorner, toSides ? left : above);
    window->setCorner(Qt::TopRightCorner, toSides ? right : above);
    window->setCorner(Qt::BottomLeftCorner, toSides ? left : below);
    window->setCorner(Qt::BottomRightCorner, toSides ? right : below);
}

// What a dock's area has of its size; the other direction follows the window.
void fixSize(const QMainWindow &window, QDockWidget *dock, const QSize &size)
{
    if (!size.isValid() || !isSeenIn(window, *dock))
        return;
    if (isAtSide(window, dock))
        dock->setFixedWidth(size.width());
    else
        dock->setFixedHeight(size.height());
}

} // namespace

void CentralRoom::setCentralVisible(QMainWindow *window, const DockArray<QDockWidget *> &docks,
                                    bool visible)
{
    if (isPutAway(window->centralWidget()) != visible)
        return;
    if (visible)
        fixFormerSizes(*window, docks);
    else
        prepareToHide(window, docks);
    window->centralWidget()->setVisible(visible);
    giveCornersToSides(window, !visible);
    window->layout()->activate(); // while sizes are fixed
    for (QDockWidget *dock : docks) {
        dock->setMinimumSize(0, 0);
        dock->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
}

void CentralRoom::prepareToHide(QMainWindow *window, const DockArray<QDockWidget *> &docks)
{
    m_dockSizes = DockArray<QSize>();
    if (!window->isVisible()) // nothing has its size yet
        return;
    // Until docks were moved or restored once, Qt goes by what they would like to have.
    if (m_windowSize.isEmpty())
        window->restoreState(window->saveState());
    m_windowSize = window->size();
    const bool keepsSides = hasAnyAboveOrBelow(*window, docks);
    for (int i = 0; i < dockCount; ++i) {
        const Dock id = static_cast<Dock>(i);
        QDockWidget *dock = docks[id];
        m_dockSizes[id] = isSeenIn(*window, *dock) ? dock->size() : QSize();
        if (keepsSides && isAtSide(*window, dock))
            fixSize(*window, dock, m_dockSizes[id]);
    }
}

void CentralRoom::fixFormerSizes(const QMainWindow &window,
                                 const DockArray<QDockWidget *> &docks) const
{
    for (int i = 0; i < dockCount; ++i) {
        const Dock id = static_cast<Dock>(i);
        const QSize size = m_dockSizes[id];
        if (size.isValid())
            fixSize(window, docks[id],
                    QSize(size.width() * window.width() / m_windowSize.width(),
                          size.height() * window.height() / m_windowSize.height()));
    }
}
