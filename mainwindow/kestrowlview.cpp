// SPDX-License-Identifier: MIT
// What the window shows: switches, panes, docks, status.
#include "mainwindow/kestrowl.h"

#include "analysis/edoutlineview.h"
#include "compat/icon.h"
#include "editor/edcodeedit.h"
#include "editor/longlines.h"
#include "workspace/flagscope.h"
#include "mainwindow/findsession.h"
#include "mainwindow/visibility.h"
#include "output/edoutputview.h"
#include "preferences/preferences.h"
#include "workspace/edbufferview.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/edopendocumentview.h"

#include <QAction>
#include <QDockWidget>
#include <QLocale>
#include <QStatusBar>
#include <QToolBar>

// The actions are connected by triggered(), so setting a check mark here calls no slot.

void Kestrowl::echoAllCommands(bool enable, bool updateWindowOnly)
{
    action(Action::EchoAllCommands)->setChecked(enable);
    const char *icon = enable ? "echoCommands" : "echoCommandsOff";
    action(Action::EchoAllCommandsButton)->setIcon(compat::icon(iconPath(icon)));
    if (!updateWindowOnly)
        emit echoAllCommandsEnabled(enable);
}

void Kestrowl::echoAllCommandsToggle()
{
    echoAllCommands(!action(Action::EchoAllCommands)->isChecked());
}

void Kestrowl::lineNumbersInErrors(bool enable, bool updateWindowOnly)
{
    action(Action::LineNumbersInErrors)->setChecked(enable);
    if (!updateWindowOnly)
        emit lineNumbersInErrorsEnabled(enable);
}

void Kestrowl::showStackTrace(bool enable, bool updateWindowOnly)
{
    action(Action::ShowStackTrace)->setChecked(enable);
    if (!updateWindowOnly)
        emit showStackTraceEnabled(enable);
}

void Kestrowl::suppressStackWindow(bool enable, bool updateWindowOnly)
{
    action(Action::SuppressStackWindow)->setChecked(enable);
    // The settings file keeps it, not an option variable of Maya's.
    preferences().suppressStackWindow = enable;
    if (!updateWindowOnly)
        emit suppressStackWindowEnabled(enable);
}

// Taken over once however often this is asked for.
void Kestrowl::overrideScriptEditorButton(bool enable)
{
    emit scriptEditorOverrideChanged(enable);
}

void Kestrowl::showTabsAndSpaces(bool enable)
{
    action(Action::ShowTabsAndSpaces)->setChecked(enable);
    const char *icon = enable ? "showTabsAndSpaces" : "showTabsAndSpacesOff";
    action(Action::ShowTabsAndSpacesButton)->setIcon(compat::icon(iconPath(icon)));
    preferences().showTabsAndSpaces = enable;
    m_central->updateHiddenCharacters();
}

void Kestrowl::showTabsAndSpacesToggle()
{
    showTabsAndSpaces(!action(Action::ShowTabsAndSpaces)->isChecked());
}

void Kestrowl::showEndOfLine(bool enable)
{
    action(Action::ShowEndOfLine)->setChecked(enable);
    preferences().showEndOfLine = enable;
    m_central->updateHiddenCharacters();
}

void Kestrowl::wordWrap(bool enable)
{
    action(Action::WordWrap)->setChecked(enable);
    preferences().wordWrapEnabled = enable;
    m_central->updateHiddenCharacters();
}

// The window never shows neither history nor editor: hiding one brings the other back.

void Kestrowl::editorVisibleChange(bool visible)
{
    action(Action::CodeEditor)->setChecked(visible);
    {
        const FlagScope ignoring(&m_ignoresDocks); // which Qt may hide and show again
        m_centralRoom.setCentralVisible(this, m_docks, visible);
    }
    if (!visible && isPutAway(m_docks[Dock::Output]))
        setOutputVisible(true);
    updateVisibleDocks();
}

// Asks for the state itself: the signal is sent with false also when another tab covers the dock.
void Kestrowl::outputViewVisibleChange(bool)
{
    if (!m_ignoresDocks && isPutAway(m_docks[Dock::Output]) && isPutAway(m_central))
        setEditorVisible(true);
}

void Kestrowl::setEditorVisible(bool visible)
{
    editorVisibleChange(visible);
}

void Kestrowl::setOutputVisible(bool visible)
{
    m_docks[Dock::Output]->setVisible(visible);
}

// What is to be seen is shown first, so that the window is never empty in between.
void Kestrowl::showOutput()
{
    setOutputVisible(true);
    setEditorVisible(false);
}

void Kestrowl::showEditor()
{
    setEditorVisible(true);
    setOutputVisible(false);
}

void Kestrowl::showBoth()
{
    setOutputVisible(true);
    setEditorVisible(true);
}

void Kestrowl::showAll()
{
    showBoth();
    for (QDockWidget *each : m_docks)
        each->show();
}

void Kestrowl::setToolbarVisible(bool visible)
{
    for (QToolBar *toolBar : m_toolBars)
        setShown(toolBar, visible);
}

// Brings a dock that was switched on to the front of those it is tabbed with. Those that only come
// with the window, or are put back as they were, stay as they are.
void Kestrowl::dockToggle(bool visible)
{
    // One slot for all docks: the sender says which one it was.
    for (QDockWidget *each : m_docks) {
        if (visible && m_isShown && !m_ignoresDocks && sender() == each->toggleViewAction())
            each->raise();
    }
    updateVisibleDocks();
}

void Kestrowl::dockLocationChange()
{
    if (!m_ignoresDocks)
        saveDockWidgetGeometry();
}

// Floating docks are windows, which would stay on the screen without theirs. They are remembered,
// and what their signals say meanwhile is no choice of the user's.
void Kestrowl::hideFloatingDocks()
{
    const int floating = visibleDockFlags(m_docks) & floatingDockFlags(m_docks);
    if (floating == 0)
        return;
    m_docksPutAway = floating;
    m_hiddenState = saveState();
    const FlagScope ignoring(&m_ignoresDocks);
    setDocksVisible(m_docks, floating, false);
}

void Kestrowl::showFloatingDocks()
{
    const FlagScope ignoring(&m_ignoresDocks);
    setDocksVisible(m_docks, m_docksPutAway, true);
    m_docksPutAway = 0;
    m_hiddenState.clear();
}

void Kestrowl::updateVisibleDocks()
{
    if (m_ignoresDocks)
        return;
    m_visibleDocks = visibleDockFlags(m_docks) | m_docksPutAway | (m_visibleDocks & formerDockFlag);
}

// All of them: moving one dock moves others.
void Kestrowl::saveDockWidgetGeometry()
{
    for (int i = 0; i < dockCount; ++i) {
        const Dock id = static_cast<Dock>(i);
        m_dockGeometry[id] = m_docks[id]->saveGeometry();
    }
}

void Kestrowl::appendOutputText(const QString &text)
{
    m_output->appendText(text);
}

void Kestrowl::setStatusText(const QString &text)
{
    statusBar()->showMessage(text);
}

void Kestrowl::clearStatusText(const QString &text)
{
    if (statusBar()->currentMessage() == text)
        statusBar()->clearMessage();
}

void Kestrowl::followDocument()
{
    const EdCodeView *view = currentView();
    m_documents->showCurrent(view ? view->fileInfo().absoluteFilePath() : QString());
    m_buffers->showCurrent(view ? view->bufferIndex() : -1);
    m_find->setEditor(view ? view->codeEdit() : nullptr);
    QTextDocument *document = view ? view->codeEdit()->document() : nullptr;
    action(Action::Undo)->setEnabled(document && document->isUndoAvailable());
    action(Action::Redo)->setEnabled(document && document->isRedoAvailable());
    if (document != m_followed)
        listenTo(document);
}

void Kestrowl::listenTo(QTextDocument *document)
{
    QObject *undo = action(Action::Undo);
    QObject *redo = action(Action::Redo);
    for (QObject *listener : {static_cast<QObject *>(m_outline), undo, redo}) {
        if (m_followed)
            m_followed->disconnect(listener);
    }
    m_followed = document;
    if (!document)
        return;
    connect(document, SIGNAL(contentsChange(int, int, int)), m_outline,
            SLOT(contentsChange(int, int, int)));
    connect(document, SIGNAL(undoAvailable(bool)), undo, SLOT(setEnabled(bool)));
    connect(document, SIGNAL(redoAvailable(bool)), redo, SLOT(setEnabled(bool)));
}

void Kestrowl::updateCursorStatus(int, int column, int sel)
{
    if (currentView())
        m_outline->followCaret(currentView()->codeEdit()->textCursor());
    m_statusLabels.showColumn(column);
    m_statusLabels.showSelectionSize(sel);
    updateInsertOverwriteStatus();
    updateSelectionActions();
}

// From the history one can copy too.
void Kestrowl::updateSelectionActions()
{
    const bool canCut = currentView() && currentView()->codeEdit()->textCursor().hasSelection();
    action(Action::Cut)->setEnabled(canCut);
    action(Action::Copy)->setEnabled(canCut || m_output->textCursor().hasSelection());
}

// Without a document the mode is shown as inserting.
void Kestrowl::updateInsertOverwriteStatus()
{
    const EdCodeView *view = currentView();
    m_statusLabels.showOverwriteMode(view && view->codeEdit()->overwriteMode());
}

void Kestrowl::explainLongLine()
{
    setStatusText(tr("Lines of more than %1 characters are shown without colors and marks.")
                      .arg(QLocale().toString(longLine)));
}

void Kestrowl::explainSlowCompletion()
{
    setStatusText(tr("Completions take long in this document: press Ctrl+Space for them."));
}
