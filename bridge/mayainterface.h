// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

// The editor's footholds in Maya's own interface: a menu item, the Script Editor button of the
// command line, shelf buttons and documentation pages. One instance, owned by the plug-in.
// Failures are shown as Maya errors and leave the editor working.
class MayaInterface : public QObject
{
    Q_OBJECT

public:
    explicit MayaInterface(QObject *parent = nullptr);

    // Adds the item that opens the editor to the General Editors menu.
    void createMenuItem();
    void removeMenuItem();

    void restoreScriptEditorButton();

    // Maya's Script Editor history of the session so far; empty when Maya does not tell.
    QString currentTrace() const;

    // Ends in "/icons/".
    QString iconDirectory() const;

public slots:
    // On takes the button over (once), off gives it back.
    void overrideScriptEditorButton(bool enable);

    // Makes a button on Maya's current shelf.
    void scriptToShelf(const QString &label, const QString &script, bool isMel);

    // Opens the page of a command, or the index for an empty name.
    void commandHelp(const QString &command, bool python);

    // Passes the argument to Maya's showHelp as it is.
    void showHelp(const QString &argument);

private:
    void takeScriptEditorButton();

    QString m_menuItemPath;       // empty: no item
    QString m_scriptEditorButton; // empty: not taken over
};
