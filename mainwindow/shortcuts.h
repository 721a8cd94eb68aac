// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class QKeyEvent;
class QShortcut;
class QWidget;

// Makes the window's shortcuts that belong to no action, and connects them to its slots; the window
// owns them.
QList<QShortcut *> createShortcuts(QWidget *window);

// Activates the shortcut whose keys were pressed and says whether there was one. For key presses
// that reached the window although the toolkit's own shortcut handling should have taken them:
// synthetic events, and the keypad's Enter, whose modifier not every version disregards.
bool activateShortcut(const QList<QShortcut *> &shortcuts, const QKeyEvent &press);
