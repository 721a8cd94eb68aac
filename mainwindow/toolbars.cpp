// SPDX-License-Identifier: MIT
#include "mainwindow/toolbars.h"

#include "mainwindow/actions.h"

#include <QMainWindow>
#include <QToolBar>

#include <vector>

namespace {

// The object name is what QMainWindow::saveState() knows a tool bar by.
struct ToolBarRow
{
    const char *title;
    const char *objectName;
    std::vector<Action> contents;
};

const int iconSize = 20; // pixels, those of the icons in the resources

} // namespace

QList<QToolBar *> createToolBars(QMainWindow *window, const ActionSet &actions)
{
    const ToolBarRow rows[] = {
        {"File",
         "filetoolbar",
         {Action::New, Action::Open, Action::SourceScript, Action::Save,
          Action::SaveScriptToShelf}},
        {"Clear", "cleartoolbar", {Action::ClearHistory, Action::ClearEditor, Action::ClearAll}},
        {"View",
         "viewtoolbar",
         {Action::ShowHistory, Action::ShowEditor, Action::ShowBoth, separator,
          Action::EchoAllCommandsButton, Action::ShowTabsAndSpacesButton}},
        {"Execute", "executetoolbar", {Action::ExecuteAll, Action::Execute, Action::ExecuteLine}},
    };

    QList<QToolBar *> toolBars;
    for (const ToolBarRow &row : rows) {
        QToolBar *toolBar = window->addToolBar(QString::fromLatin1(row.title));
        toolBar->setObjectName(QString::fromLatin1(row.objectName));
        toolBar->setIconSize(QSize(iconSize, iconSize));
        addActions(toolBar, actions, row.contents);
        toolBars << toolBar;
    }
    return toolBars;
}
