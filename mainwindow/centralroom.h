// SPDX-License-Identifier: MIT
#pragma once

#include "mainwindow/docks.h"

#include <QSize>

// The room of the widget in the centre of a window. While that is hidden, the docks above and below
// have its room, and those at the sides all the height; when it is shown again, each has the size
// that it had before, or the same share of a window that has been resized.
class CentralRoom
{
public:
    // Does nothing when the widget is as wanted, and no more than that in a window that is not
    // seen.
    void setCentralVisible(QMainWindow *window, const DockArray<QDockWidget *> &docks,
                           bool visible);

private:
    void prepareToHide(QMainWindow *window, const DockArray<QDockWidget *> &docks);
    void fixFormerSizes(const QMainWindow &window, const DockArray<QDockWidget *> &docks) const;

    DockArray<QSize> m_dockSizes; // before the widget was hidden; not valid of those not seen then
    QSize m_windowSize;           // then; empty before the first time
};
