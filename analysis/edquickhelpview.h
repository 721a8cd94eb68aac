// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/commandhelp.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QWidget>

class FlagList;
class QBoxLayout;
class QLabel;
class QLineEdit;
class QToolButton;

// Help on one command, in a dock of the window: what it is, its flags, and the way to its page.
// The host is asked once for each command, and never while nobody sees the view.
class EdQuickHelpView : public QWidget
{
    Q_OBJECT

public:
    explicit EdQuickHelpView(QWidget *parent = nullptr);

    // The name that was asked for last; empty before.
    QString command() const { return m_command; }
    // The one of that name, with both of its names; of an unknown one just the name. A dash in
    // front is no part of it.
    CommandFlag flag(const QString &name) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

public slots:
    // Looks the name up as soon as the view is seen. An empty one asks for a command.
    void showCommand(const QString &command);
    // Goes back to the command that was shown before.
    void back();
    // Has the next keys choose a flag.
    void focusFilter();

signals:
    // A name was entered here.
    void quickHelpSelected(const QString &command, bool ignoreWhenHidden);
    // A name without the dash, the long one where there is one.
    void flagSelected(const QString &flag);
    void documentationSelected(const QString &command);
    // The user left the view by Escape.
    void editorWanted();

protected:
    void showEvent(QShowEvent *event) override;

private slots:
    void filterFlags(const QString &text);
    void chooseFlag();
    void enterCommand();
    void openDocumentation();

private:
    QBoxLayout *createCommandRow();
    QBoxLayout *createMessageRow();
    bool handleKey(QObject *watched, int key);
    void lookUp();
    CommandHelp helpOn(const QString &command);
    QString message(const CommandHelp &help) const;

    QString m_command;
    bool m_isLookedUp = true; // whether what is shown is about m_command
    QStringList m_history;    // the commands shown before, the last one last
    QHash<QString, CommandHelp> m_known;

    QLineEdit *m_entry;
    QToolButton *m_back;
    QLabel *m_message;
    QToolButton *m_documentation;
    QLineEdit *m_filter;
    FlagList *m_flags;
};
