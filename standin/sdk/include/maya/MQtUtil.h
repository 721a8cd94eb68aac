// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MString.h>

class QAction;
class QObject;
class QString;
class QWidget;

STANDIN_API_OPEN

// The interface's Qt objects by their names; null in a batch session or when there is none.
class STANDIN_API MQtUtil
{
public:
    static QWidget *mainWindow();
    static QWidget *findControl(MString controlName, const QWidget *ancestor = nullptr);
    static QWidget *findLayout(MString layoutName, const QWidget *ancestor = nullptr);
    static QWidget *findWindow(MString windowName);
    static QAction *findMenuItem(MString menuItemName);
    static MString fullName(const QObject *object);
    // The widget that holds the object, however far above it.
    static QWidget *getParent(const QObject *object);

    static MString toMString(const QString &text);
    static QString toQString(const MString &text);
};

STANDIN_API_CLOSE
