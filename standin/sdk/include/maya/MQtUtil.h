// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MString.h>

class QAction;
class QObject;
class QString;
class QWidget;

STANDIN_API_OPEN

// The interface's Qt objects by the names that scripts know them by, and text between the two
// worlds. Main thread only, but for the conversions. The widgets belong to the interface and may go
// at any time after the call; keep a QPointer. Null in a batch session, or when there is no such
// name. The calls about graphics contexts and native windows are left out.
class STANDIN_API MQtUtil
{
public:
    // The window that holds the menu bar, and the parent for a plug-in's own windows.
    static QWidget *mainWindow();
    // Names are short ("button1") or paths ("window1|column1|button1"). An ancestor narrows the
    // search: a widget outside of it counts as not found. Controls include layouts.
    static QWidget *findControl(MString controlName, const QWidget *ancestor = nullptr);
    static QWidget *findLayout(MString layoutName, const QWidget *ancestor = nullptr);
    static QWidget *findWindow(MString windowName);
    // Of an item, or the action that opens a menu.
    static QAction *findMenuItem(MString menuItemName);
    // The path of the element that the object stands for; empty for an object that is none.
    static MString fullName(const QObject *object);
    // The nearest widget that holds the object, however far above it; null without one.
    static QWidget *getParent(const QObject *object);

    // Through UTF-8, so nothing is lost on the way.
    static MString toMString(const QString &text);
    static QString toQString(const MString &text);
};

STANDIN_API_CLOSE
