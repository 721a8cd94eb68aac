// SPDX-License-Identifier: MIT
#pragma once

class ActionSet;
class QMainWindow;
class QMenu;

// Fills the window's menu bar, which owns the menus; every menu can be torn off. Returns the View
// menu, to which the docks add their actions.
QMenu *createMenus(QMainWindow *window, const ActionSet &actions);
