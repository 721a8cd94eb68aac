// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/mayainterface.h"
#include "mainwindow/kestrowl.h"
#include "plugin/mayahandler.h"

#include <maya/MCallbackIdArray.h>

#include <QPointer>

#include <memory>

// What exists once while the plug-in is loaded in an interactive session; KestrowlCmd creates and
// deletes it. Pointers are null before that, after it, and for what could not be made. Deleted in
// the order that KestrowlCmd::cleanup() gives, not in that of the members.
struct EditorInstance
{
    // Child of Maya's main window; deleted at unload, or before it with its parent when Maya ends.
    QPointer<Kestrowl> window;
    std::unique_ptr<MayaHandler> handler;         // needs the window
    std::unique_ptr<MayaInterface> mayaInterface; // made first: it knows where icons are
    int quitJobNumber = 0; // of the job that saves the settings when Maya quits, 0: none
    MCallbackIdArray outputCallbackIds; // one, or none
};

// For the GUI thread.
EditorInstance &editorInstance();
