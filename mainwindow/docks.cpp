// SPDX-License-Identifier: MIT
#include "mainwindow/docks.h"

#include "mainwindow/visibility.h"

#include <QAction>
#include <QDockWidget>
#include <QFrame>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>

namespace {

// The object name is what QMainWindow::saveState() knows a dock by.
struct DockRow
{
    Dock dock;
    const char *title;
    const char *objectName;
    const char *toggleKeys;
    Qt::DockWidgetArea area;
    int flag; // 2 is formerDockFlag
    bool initiallyVisible;
};

// clang-format off
const DockRow dockRows[] = {
    // dock           title            object name         toggle keys     area                     flag  initially visible
    {Dock::Project,   "Project View",  "projectdock",      "Ctrl+Alt+P",   Qt::LeftDockWidgetArea,  32,   true},
    {Dock::Documents, "Documents",     "opendocumentdock", "Ctrl+Alt+D",   Qt::LeftDockWidgetArea,  4,    true},
    {Dock::Buffers,   "Buffers",       "bufferdock",       "Ctrl+Alt+B",   Qt::LeftDockWidgetArea,  1,    true},
    {Dock::Output,    "Output Window", "outputdock",       "Ctrl+Shift+O", Qt::TopDockWidgetArea,   8,    true},
    {Dock::Outline,   "Outline",       "outlinedock",      "Ctrl+Alt+O",   Qt::RightDockWidgetArea, 16,   true},
    {Dock::QuickHelp, "Quick Help",    "quickhelpdock",    "Ctrl+Alt+J",   Qt::RightDockWidgetArea, 64,   false},
};
// clang-format on

QDockWidget *createDock(const DockRow &row, QMainWindow *window, QWidget *content)
{
    QDockWidget *dock = new QDockWidget(QString::fromLatin1(row.title), window);
    dock->setObjectName(QString::fromLatin1(row.objectName));
    dock->setWidget(content);
    // The dock's own edge is enough.
    if (QFrame *frame = qobject_cast<QFrame *>(content))
        frame->setFrameShape(QFrame::NoFrame);
    dock->toggleViewAction()->setShortcut(QKeySequence(QString::fromLatin1(row.toggleKeys)));
    window->addDockWidget(row.area, dock);
    setShown(dock, row.initiallyVisible);
    return dock;
}

void connectDock(QDockWidget *dock, QMainWindow *window)
{
    QObject::connect(dock->toggleViewAction(), SIGNAL(toggled(bool)), window,
                     SLOT(dockToggle(bool)));
    QObject::connect(dock, SIGNAL(dockLocationChanged(Qt::DockWidgetArea)), window,
                     SLOT(dockLocationChange()));
    QObject::connect(dock, SIGNAL(visibilityChanged(bool)), window, SLOT(updateVisibleDocks()));
}

} // namespace

DockArray<QDockWidget *> createDocks(QMainWindow *window, QMenu *viewMenu,
                                     const DockArray<QWidget *> &contents)
{
    DockArray<QDockWidget *> docks;
    for (const DockRow &row : dockRows) {
        QDockWidget *dock = createDock(row, window, contents[row.dock]);
        viewMenu->addAction(dock->toggleViewAction());
        // Its keys work while the menu bar is hidden too.
        window->addAction(dock->toggleViewAction());
        docks[row.dock] = dock;
    }
    // Connected last: the slots look at all docks.
    for (QDockWidget *dock : docks)
        connectDock(dock, window);
    return docks;
}

int dockFlag(Dock dock)
{
    for (const DockRow &row : dockRows) {
        if (row.dock == dock)
            return row.flag;
    }
    return 0;
}

int visibleDockFlags(const DockArray<QDockWidget *> &docks)
{
    int flags = 0;
    for (const DockRow &row : dockRows) {
        if (!isPutAway(docks[row.dock]))
            flags |= row.flag;
    }
    return flags;
}

int floatingDockFlags(const DockArray<QDockWidget *> &docks)
{
    int flags = 0;
    for (const DockRow &row : dockRows) {
        if (docks[row.dock]->isFloating())
            flags |= row.flag;
    }
    return flags;
}

void setDocksVisible(const DockArray<QDockWidget *> &docks, int flags, bool visible)
{
    for (const DockRow &row : dockRows) {
        if (flags & row.flag)
            setShown(docks[row.dock], visible);
    }
}
