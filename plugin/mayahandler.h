// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class Kestrowl;

// Carries what the window asks for to Maya. User code is queued for idle time, so that it runs
// after the event that asked for it; its output comes back through the output callback. One
// instance, owned by the plug-in, which deletes it before the window. Keeps no state: that of the
// switches lives in Maya. Maya reports failures itself, so none is checked here.
class MayaHandler : public QObject
{
    Q_OBJECT

public:
    explicit MayaHandler(Kestrowl *window);

    // Runs Python at once rather than on idle, and not undoable. Without `display` everything that
    // Maya prints meanwhile is dropped.
    static void runPython(const QString &code, bool display);

    // Shows Maya's option variables in the window's toggles, without sending anything back.
    void mirrorOptionVariables();

    // Sends the stored echo state to Maya once more; nothing when it was never stored.
    void applyEchoOptionVariable();

public slots:
    // A text that is one variable name prints its value instead of being echoed. Texts run in the
    // order in which they were queued.
    void executeMel(const QString &code);
    void executePython(const QString &code);
    // Maya sources the MEL file at once.
    void sourceScript(const QString &path);
    // Each switches Maya on idle, and stores the state at once where Maya's own Script Editor keeps
    // it, if it does.
    void echoAllCommands(bool enable);
    void lineNumbersInErrors(bool enable);
    void showStackTrace(bool enable);
    void suppressStackWindow(bool enable);
    // Those that the preferences name, at once.
    void importForcedModules();

private:
    Kestrowl *m_window; // not owned
};
