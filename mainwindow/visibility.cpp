// SPDX-License-Identifier: MIT
#include "mainwindow/visibility.h"

#include <QWidget>

// A widget counts as hidden until it is shown for the first time; the attribute tells whether
// anybody asked for that.
bool isPutAway(const QWidget *part)
{
    return part->isHidden() && part->testAttribute(Qt::WA_WState_ExplicitShowHide);
}

void setShown(QWidget *part, bool shown)
{
    if (isPutAway(part) == shown)
        part->setVisible(shown);
}
