// SPDX-License-Identifier: MIT
#pragma once

#include "editor/edcodeedit.h"
#include "mainwindow/kestrowl.h"
#include "preferences/preferences.h"
#include "tests/support/scratchdir.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"

#include <QAction>
#include <QApplication>

// A window whose script and settings directories are an empty scratch directory.
struct WindowFixture
{
    ScratchDir dir;
    Kestrowl window;

    WindowFixture() : window(dir.path(), dir.path()) {}

    EdCodeEdit *edit() const { return window.central()->currentCodeView()->codeEdit(); }
    QAction *action(Action id) const { return window.action(id); }

    void showActive()
    {
        window.show();
        QApplication::setActiveWindow(&window);
    }

    // A new MEL (0) or Python (1) buffer holding the text, the caret at its start. What was open
    // goes without a question.
    void newBuffer(int type, const char *text)
    {
        if (window.central()->currentCodeView())
            edit()->setText(QString());
        window.newBuffer(type);
        edit()->setText(QString::fromUtf8(text));
        edit()->document()->setModified(false);
    }
};
