// SPDX-License-Identifier: MIT
// Tab is for the text: these keys lead to the other parts of the window, and back.
#include "mainwindow/kestrowl.h"

#include "editor/edcodeedit.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"

#include <QApplication>
#include <QDockWidget>

namespace {

bool holds(const QWidget *part, const QWidget *focused)
{
    return part == focused || part->isAncestorOf(focused);
}

} // namespace

// The texts of both panes, then what the docks show.
QList<QWidget *> Kestrowl::keyboardParts() const
{
    QList<QWidget *> parts;
    for (int pane = 0; pane < EdCentralWidget::PaneCount; ++pane) {
        const EdCodeView *view = m_central->pane(pane)->currentCodeView();
        if (view && view->isVisible())
            parts << view->codeEdit();
    }
    for (const QDockWidget *dock : m_docks) {
        if (dock->isVisible())
            parts << dock->widget();
    }
    return parts;
}

void Kestrowl::focusNextPart()
{
    focusPart(1);
}

void Kestrowl::focusPreviousPart()
{
    focusPart(-1);
}

void Kestrowl::focusPart(int step)
{
    const QList<QWidget *> parts = keyboardParts();
    if (parts.isEmpty())
        return;
    const int count = int(parts.size());
    int current = step > 0 ? -1 : count; // with the keyboard in a tool bar
    for (int part = 0; part < count; ++part) {
        if (holds(parts.at(part), QApplication::focusWidget()))
            current = part;
    }
    QWidget *next = parts.at((current + step + count) % count);
    QDockWidget *dock = qobject_cast<QDockWidget *>(next->parentWidget());
    if (dock)
        dock->raise();                                     // another may share its place
    setStatusText(dock ? dock->windowTitle() : QString()); // an empty list shows no focus
    next->activateWindow();                                // a dock may float
    next->setFocus(Qt::ShortcutFocusReason);
}
