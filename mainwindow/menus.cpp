// SPDX-License-Identifier: MIT
#include "mainwindow/menus.h"

#include "mainwindow/actions.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace {

// A menu and its actions in their order.
struct MenuRow
{
    const char *title;
    std::vector<Action> contents;
};

// These two are told apart below by their address.
const char viewTitle[] = "&View";
const char helpTitle[] = "&Help";

// Made when it is asked for: vectors at namespace level would be built whenever the library is
// loaded.
std::vector<MenuRow> menuRows()
{
    using A = Action;
    // clang-format off
    return {
        {"&File",
         {A::New, A::NewMelBuffer, A::NewPythonBuffer, A::Open, separator,
          A::Close, A::CloseAll, A::CloseAllButActive, separator,
          A::Save, A::SaveAs, A::SaveAll, A::Rename, A::ReloadFromDisk, separator,
          A::SaveState, separator,
          A::SaveScriptToShelf, separator,
          A::SourceScript}},
        {"&Edit",
         {A::Undo, A::Redo, separator,
          A::Cut, A::Copy, A::Paste, A::SelectAll, separator,
          A::FindReplace, A::GoToLine, separator,
          A::ConvertTabsToSpaces, separator,
          A::ClearHistory, A::ClearEditor, A::ClearAll, separator,
          A::Preferences}},
        {"&History",
         {A::EchoAllCommands, A::LineNumbersInErrors, A::ShowStackTrace, separator,
          A::SuppressStackWindow}},
        {"&Command",
         {A::Execute, A::ExecuteAll, A::ExecuteLine}},
        {viewTitle,
         {A::ShowTabsAndSpaces, A::WordWrap, separator,
          A::CodeEditor}},
        {helpTitle,
         {A::MelCommandReference, A::PythonCommandReference, A::NodeAndAttributeReference, separator,
          A::Licensing, separator,
          A::About}},
    };
    // clang-format on
}

} // namespace

QMenu *createMenus(QMainWindow *window, const ActionSet &actions)
{
    QMenu *viewMenu = nullptr;
    for (const MenuRow &row : menuRows()) {
        // Some styles put what follows to the far end of the bar.
        if (row.title == helpTitle)
            window->menuBar()->addSeparator();
        QMenu *menu = window->menuBar()->addMenu(QString::fromLatin1(row.title));
        menu->setTearOffEnabled(true);
        addActions(menu, actions, row.contents);
        if (row.title == viewTitle)
            viewMenu = menu;
    }
    return viewMenu;
}
