// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

// The editor's footholds in Maya's own interface: a menu item, the Script Editor button of the
// command line, shelf buttons and documentation pages. One instance, owned by the plug-in, which
// has what is in Maya removed before it deletes this object: the destructor touches nothing.
// Failures are shown as Maya errors and leave the editor working.
class MayaInterface : public QObject
{
    Q_OBJECT

public:
    explicit MayaInterface(QObject *parent = nullptr);

    // Adds the item that opens the editor at the end of the General Editors menu, behind a divider.
    // Without that menu nothing happens.
    void createMenuItem();
    // Nothing when there is no item.
    void removeMenuItem();

    // Gives back command and annotation of the button; nothing unless it was taken over.
    void restoreScriptEditorButton();

    // Maya's Script Editor history of the session so far; empty when Maya does not tell.
    QString currentTrace() const;

    // Where Maya keeps its icons. Ends in "/icons/", which is all of it when the place is not
    // known.
    QString iconDirectory() const;

public slots:
    // On takes the button over (once), off gives it back.
    void overrideScriptEditorButton(bool enable);

    // Makes a button on Maya's current shelf, once Maya is idle. The script is Python unless it
    // is MEL.
    void scriptToShelf(const QString &label, const QString &script, bool isMel);

    // Opens the page of a compiled command, or the index for an empty name. Other names are an
    // error.
    void commandHelp(const QString &command, bool python);

    // Passes the argument to Maya's showHelp as it is. It is MEL, not quoted: for the editor's own
    // texts, not for those of users.
    void showHelp(const QString &argument);

private:
    void takeScriptEditorButton();

    QString m_menuItemPath;       // in Maya's interface; empty: no item
    QString m_scriptEditorButton; // the name of Maya's control; empty: not taken over
};
