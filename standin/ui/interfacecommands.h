// SPDX-License-Identifier: MIT
#pragma once

namespace standin {

class UserInterface;

// The commands of the interface, by topic. Each is called once, when the interface is made; what
// they add refers to it, so scripts that run after its end must not use them.
void addElementCommands(UserInterface &ui); // deleteUI, lsUI, setParent, setFocus
void addWindowCommands(UserInterface &ui);  // window, showWindow
void addMenuCommands(UserInterface &ui);    // menu, menuItem
void addLayoutCommands(UserInterface &ui);  // columnLayout, rowLayout, ...
void addControlCommands(UserInterface &ui); // button, text, symbolButton, ...
void addShelfCommands(UserInterface &ui);   // shelfTabLayout, shelfLayout, shelfButton, saveShelf
void addScriptFieldCommands(UserInterface &ui); // cmdScrollFieldReporter, cmdScrollFieldExecuter
void addDialogCommands(UserInterface &ui);      // confirmDialog, promptDialog
void addAppCommands(UserInterface &ui);         // ScriptEditor, showHelp, refresh, waitCursor

} // namespace standin
