// SPDX-License-Identifier: MIT
#pragma once

namespace standin {

class Session;

// The commands through which scripts reach the session, by topic. Each is called once, when the
// session is made; what they add refers to the session and dies with its interpreter.
void addSessionCommands(Session &session);     // about, internalVar, python, quit
void addPluginManagement(Session &session);    // loadPlugin, unloadPlugin, pluginInfo
void addOptionVarCommand(Session &session);    // optionVar
void addScriptJobCommand(Session &session);    // scriptJob
void addScriptEditorCommand(Session &session); // scriptEditorInfo

} // namespace standin
