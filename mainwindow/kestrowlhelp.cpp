// SPDX-License-Identifier: MIT
// The window's help: about the program, Maya's pages, Quick Help.
#include "mainwindow/kestrowl.h"

#include "analysis/commandword.h"
#include "analysis/edquickhelpview.h"
#include "analysis/pythonkeywords.h"
#include "bridge/commandhelp.h"
#include "bridge/melnametable.h"
#include "editor/codearound.h"
#include "editor/edcodeedit.h"
#include "editor/editorlanguage.h"
#include "mainwindow/aboutdialog.h"
#include "mainwindow/dialogs.h"
#include "mainwindow/flaginsertion.h"
#include "workspace/edcodeview.h"

#include <QDockWidget>
#include <QTextBlock>
#include <QTextCursor>

namespace {

// The table has the empty name, too.
bool isMelName(const QString &name)
{
    return !name.isEmpty() && melNameTable().contains(name);
}

bool isCommand(const QString &name)
{
    return isMelName(name) || commandHelp(name).kind != CommandKind::Unknown;
}

// The first that is a command; print is none in Python.
QString firstCommand(const QStringList &names, bool isPython)
{
    for (const QString &name : names) {
        if (isCommand(name) && !(isPython && isPythonKeyword(name)))
            return name;
    }
    return QString();
}

// The command whose arguments the caret is among, or whose call it is right behind.
//   ls -long; |      cmds.ls(long=True)|
QString commandAround(const CodeAround &code, bool isPython)
{
    QString command = firstCommand(commandsBefore(code.text, code.caret), isPython);
    for (int i = code.caret - 1; i >= 0 && command.isEmpty(); --i) {
        const ushort unit = code.text.at(i).unicode();
        if (unit == ' ' || unit == '\t') // within the same calls as what is behind it
            continue;
        if (unit != ';' && unit != '`' && unit != ')')
            break;
        command = firstCommand(commandsBefore(code.text, i), isPython);
    }
    return command;
}

// The name at the caret; where that is a flag, or none of Maya's, the command around it.
QString commandAtCaret(EdCodeEdit *edit)
{
    const QTextCursor caret = edit->textCursor();
    const CodeAround code = codeAround(caret, edit->language());
    const QString name = commandWordAt(caret.block().text(), caret.positionInBlock());
    if (isMelName(name) && !isFlagAt(code.text, code.caret))
        return name;
    const QString command = commandAround(code, edit->language() == PythonLanguage);
    return command.isEmpty() ? name : command;
}

} // namespace

void Kestrowl::about()
{
    AboutDialog *dialog = findChild<AboutDialog *>();
    presentDialog(dialog ? dialog : new AboutDialog(this));
}

void Kestrowl::melCommandReference()
{
    emit commandHelpRequested(QString(), false);
}

void Kestrowl::pythonCommandReference()
{
    emit commandHelpRequested(QString(), true);
}

// Not the page of a command, so the argument is that of Maya's showHelp.
void Kestrowl::nodeAndAttributeReference()
{
    emit showHelpRequested(QLatin1String("-docs \"Nodes/index.html\""));
}

// An empty text is asked about from a document.
QString Kestrowl::quickHelpCommand(const QString &text) const
{
    const QString command = commandWord(text);
    if (!command.isEmpty() || !currentView())
        return command;
    return commandAtCaret(currentView()->codeEdit());
}

void Kestrowl::updateAndShowQuickHelp(const QString &text, bool ignoreWhenHidden)
{
    const QString command = quickHelpCommand(text);
    if (ignoreWhenHidden) {
        // Nobody asked: no other dock makes room, and what is shown stays if nothing is known.
        if (isMelName(command))
            m_quickHelp->showCommand(command);
        return;
    }
    const bool isShown = m_quickHelp->isVisible() && m_quickHelp->command() == command;
    m_quickHelp->showCommand(command);
    showQuickHelp();
    if (isShown) // asked for again
        m_quickHelp->focusFilter();
}

void Kestrowl::showQuickHelp()
{
    QDockWidget *quickHelp = m_docks[Dock::QuickHelp];
    // Floating, it would be alone on the screen while the window is closed, and comes with it.
    if (!isVisible() && quickHelp->isFloating()) {
        m_docksPutAway |= dockFlag(Dock::QuickHelp);
        updateVisibleDocks();
        return;
    }
    quickHelp->show();
    quickHelp->raise();
}

void Kestrowl::insertQuickHelpFlag(const QString &flag)
{
    if (!currentView())
        return;
    insertFlag(currentView()->codeEdit(), m_quickHelp->flag(flag), m_quickHelp->command());
    focusEditor();
}

// Where nothing is selected, the page is that of the command at the caret; else the index.
void Kestrowl::openSelectedPage(const QString &selection, bool python)
{
    QString command = selection;
    if (command.isEmpty() && currentView())
        command = commandAtCaret(currentView()->codeEdit());
    const bool isKnown = !selection.isEmpty() || commandHelp(command).hasPage;
    emit commandHelpRequested(isKnown ? command : QString(), python);
}

void Kestrowl::openQuickHelpPage(const QString &command)
{
    const bool python = currentView() && currentView()->language() == EdCodeView::Python;
    emit commandHelpRequested(command, python);
}

void Kestrowl::focusEditor()
{
    if (!currentView())
        return;
    activateWindow(); // the dock may float
    currentView()->codeEdit()->setFocus();
}
