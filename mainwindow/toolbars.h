// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class ActionSet;
class QMainWindow;
class QToolBar;

// Adds the tool bars to the window, which owns them.
QList<QToolBar *> createToolBars(QMainWindow *window, const ActionSet &actions);
