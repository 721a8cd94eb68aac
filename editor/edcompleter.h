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

    // Asks for completions unless the preferences switch this trigger off for the editor's
    // language, which is one of EdCodeEdit's numbers.
    void begin(Trigger trigger, int language);

signals:
    // `trigger` is a Trigger.
    void requested(int trigger);
    // The user has chosen a completion; `prefixLength` UTF-16 units before the caret are replaced.
    void activated(const QString &text, int prefixLength);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
