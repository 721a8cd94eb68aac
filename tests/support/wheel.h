// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QWheelEvent>
#include <QWidget>

// Turns the wheel over a widget by one step, towards the user.
inline void turnWheel(QWidget *widget)
{
    const int step = -120;
    const QPoint place = widget->rect().center();
#if QT_VERSION >= QT_VERSION_CHECK(5, 12, 0)
    QWheelEvent event(place, widget->mapToGlobal(place), QPoint(), QPoint(0, step), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
#else
    QWheelEvent event(place, step, Qt::NoButton, Qt::NoModifier);
#endif
    QApplication::sendEvent(widget, &event);
}
