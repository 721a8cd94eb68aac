// SPDX-License-Identifier: MIT
#include "editor/edcompleter.h"

#include "editor/editorlanguage.h"
#include "preferences/preferences.h"

#include <QKeyEvent>

namespace {

bool isSwitchedOn(EdCompleter::Trigger trigger, int language)
{
    const Preferences &chosen = preferences();
    if (language == PythonLanguage) {
        switch (trigger) {
        case EdCompleter::OnDemand:
            return chosen.pythonCompleteOnUser;
        case EdCompleter::OnPeriod:
            return chosen.pythonCompleteOnPeriod;
        case EdCompleter::OnLetters:
            return chosen.pythonCompleteOnLetters;
        }
    }
    if (language == MelLanguage) {
        return trigger == EdCompleter::OnDemand    ? chosen.melCompleteOnUser
               : trigger == EdCompleter::OnLetters ? chosen.melCompleteOnLetters
                                                   : false;
    }
    return false;
}

} // namespace

EdCompleter::EdCompleter(QWidget *editor) : QListWidget(editor)
{
    setObjectName(QLatin1String("completer"));
    setFocusPolicy(Qt::NoFocus); // the caret stays in the editor
    hide();
}

void EdCompleter::begin(Trigger trigger, int language)
{
    if (isSwitchedOn(trigger, language))
        emit requested(trigger);
}

void EdCompleter::updateCompletions()
{
    emit updateRequested();
}

// What the popup has no use for must not come back to the editor, which has handed it over.
void EdCompleter::keyPressEvent(QKeyEvent *event)
{
    QListWidget::keyPressEvent(event);
    event->accept();
}
