// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>

// The popup that offers completions, a child of its editor. The editor asks it to begin and tells
// it what was typed meanwhile; while it is visible, the editor leaves it the keys that choose. What
// there is to complete comes from whoever connects to requested().
class EdCompleter : public QListWidget
{
    Q_OBJECT

public:
    // What made the editor ask.
    enum Trigger { OnDemand, OnPeriod, OnLetters };

    explicit EdCompleter(QWidget *editor);

    // Asks for completions unless the preferences switch this trigger off for the language, which
    // is an EditorLanguage.
    void begin(Trigger trigger, int language);
    // While it is visible: the text before the caret is another one now.
    void updateCompletions();

signals:
    // `trigger` is a Trigger.
    void requested(int trigger);
    void updateRequested();
    // The user has chosen a completion; `prefixLength` UTF-16 units before the caret are replaced.
    void activated(const QString &text, int prefixLength);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
