// SPDX-License-Identifier: MIT
// What is told of the current document, and when it is parsed.
#include "workspace/edcentralwidget.h"

#include "editor/edcodeedit.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/scriptdetails.h"

#include <QTextCursor>

namespace {

// Milliseconds.
const int parseDelay = 2000; // after the last change of the text
const int paintDelay = 50;   // after which another document has been painted

} // namespace

void EdCentralWidget::onTabChange()
{
    if (m_ignoresTabs)
        return;
    if (currentCodeView() && ScriptDetails::areLongInComing(currentCodeView()))
        return showUnparsed();
    activeViewChange();
    showTabChange();
}

// What was found in the document comes when it has been painted.
void EdCentralWidget::showUnparsed()
{
    m_parseTimer.start(paintDelay);
    showTabChange();
}

void EdCentralWidget::showTabChange()
{
    if (!currentCodeView())
        emit clearScriptDetails();
    else if (active()->isVisible())
        active()->setCodeEditFocus();
    reportName();
    onCursorStatusChange();
    update(); // of the hint
}

void EdCentralWidget::reportName()
{
    m_tabsTimer.start();
    const EdCodeView *view = currentCodeView();
    QString name;
    if (view && view->isBuffer())
        name = active()->tabText(active()->currentIndex());
    else if (view)
        name = view->fileInfo().absoluteFilePath();
    emit activeBufferNameChanged(name);
}

void EdCentralWidget::onCursorStatusChange()
{
    const EdCodeView *view = currentCodeView();
    if (!view) {
        emit cursorStatusChanged(0, 0, 0);
        return;
    }
    const QTextCursor cursor = view->codeEdit()->textCursor();
    emit cursorStatusChanged(cursor.blockNumber(), cursor.positionInBlock(),
                             cursor.selectionEnd() - cursor.selectionStart());
}

void EdCentralWidget::onTextChange()
{
    m_parseTimer.start(parseDelay);
}

void EdCentralWidget::activeViewChange()
{
    m_parseTimer.stop();
    m_otherPaneTimer.start(paintDelay); // its text may have been left in the midst of typing
    EdCodeView *view = currentCodeView();
    if (!view)
        return;
    const ScriptDetails &details = ScriptDetails::of(view);
    if (const MelParser *parser = details.mel())
        emit melScriptUpdated(*parser);
    else if (const PythonParser *python = details.python())
        emit pythonScriptUpdated(*python);
    else
        emit clearScriptDetails();
}

void EdCentralWidget::updateDiagnostics()
{
    parseOtherPane();
    activeViewChange();
}

void EdCentralWidget::parseOtherPane()
{
    for (EdCodeTabWidget *pane : m_panes) {
        if (pane != active() && pane->isVisible() && pane->currentCodeView())
            ScriptDetails::of(pane->currentCodeView());
    }
}

void EdCentralWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_otherPaneTimer.start(paintDelay);
}
