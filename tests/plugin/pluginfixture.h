// SPDX-License-Identifier: MIT
#pragma once

#include "standin/ui/userinterface.h"
#include "tests/support/scratchdir.h"
#include "tests/support/sessionlog.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QWidget>

#include <memory>

class QPlainTextEdit;

// What tests share that load the plug-in into a session, as Maya does. Its classes are its own, so
// they are reached as Qt's classes and by name.
class PluginFixture : public QObject
{
protected:
    // A new user's session, with windows unless it is a batch session; ends the one before.
    void startSession(bool batch = false);
    // The same user comes again.
    void restartSession();
    // The plug-in is unloaded and must have taken its window with it.
    void endSession();

    bool load();
    void unload();
    void runIdle();
    // The value of a MEL text as a script would print it.
    QString mel(const char *text);

    // Null while there is none.
    static QWidget *editorWindow();
    // What the active pane shows; null without a document.
    static QPlainTextEdit *activeEditor();
    static QPlainTextEdit *outputView();
    // By class name, in the editor's window.
    template <typename Widget>
    static QList<Widget *> widgetsOf(const char *className)
    {
        QList<Widget *> found;
        for (Widget *widget : editorWindow()->findChildren<Widget *>()) {
            if (widget->inherits(className))
                found << widget;
        }
        return found;
    }

    std::unique_ptr<ScratchDir> m_folder; // the user's
    std::unique_ptr<standin::Session> m_session;
    std::unique_ptr<SessionLog> m_log;
    std::unique_ptr<standin::UserInterface> m_ui;

private:
    void openSession(bool batch);
};
