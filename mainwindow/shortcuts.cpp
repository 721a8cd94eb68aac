// SPDX-License-Identifier: MIT
#include "mainwindow/shortcuts.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QShortcut>
#include <QWidget>

QList<QShortcut *> createShortcuts(QWidget *window)
{
    // Return and Enter are two keys: that of the letters and that of the keypad.
    const struct
    {
        const char *keys;
        const char *slot;
    } rows[] = {
        {"Ctrl+T", SLOT(newBuffer())},
        {"Ctrl+Shift+W", SLOT(closeEditor())},
        {"Ctrl+Return", SLOT(execute())},
        {"Ctrl+Enter", SLOT(execute())},
        {"Ctrl+Alt+Return", SLOT(executeLine())},
        {"Ctrl+Alt+Enter", SLOT(executeLine())},
        {"Ctrl+Shift+Return", SLOT(executeAll())},
        {"Ctrl+Shift+Enter", SLOT(executeAll())},
        {"F3", SLOT(findNext())},
        {"Shift+F3", SLOT(findPrevious())},
        {"F6", SLOT(focusNextPart())},
        {"Shift+F6", SLOT(focusPreviousPart())},
    };

    QList<QShortcut *> shortcuts;
    for (const auto &row : rows) {
        const QKeySequence keys(QString::fromLatin1(row.keys));
        QShortcut *shortcut = new QShortcut(keys, window, row.slot);
        shortcut->setContext(Qt::WindowShortcut);
        shortcuts << shortcut;
    }
    return shortcuts;
}

bool activateShortcut(const QList<QShortcut *> &shortcuts, const QKeyEvent &press)
{
    // Whether a key lies on the keypad is said by Enter itself.
    Qt::KeyboardModifiers modifiers = press.modifiers();
    modifiers &= ~Qt::KeypadModifier;
    const QKeySequence keys(press.key() | static_cast<int>(modifiers));
    for (QShortcut *shortcut : shortcuts) {
        // A signal of another class is protected in Qt 4, but can be emitted by its name.
        if (shortcut->key() == keys)
            return QMetaObject::invokeMethod(shortcut, "activated", Qt::DirectConnection);
    }
    return false;
}
