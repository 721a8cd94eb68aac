// SPDX-License-Identifier: MIT
// What is passed on: commands to the views, and what the views report to whoever has the pane.
#include "workspace/edcodetabwidget.h"

#include "editor/edcodeedit.h"
#include "workspace/edcodetabbar.h"
#include "workspace/edcodeview.h"

void EdCodeTabWidget::save()
{
    save(currentIndex());
}

void EdCodeTabWidget::save(int tabIndex)
{
    if (EdCodeView *view = codeViewAt(tabIndex))
        view->save();
}

void EdCodeTabWidget::saveAs(const QString &path)
{
    EdCodeView *view = currentCodeView();
    if (!view || path.isEmpty())
        return;
    const QString oldPath = view->fileInfo().absoluteFilePath();
    const int oldIndex = view->bufferIndex();
    const QPointer<EdCodeTabWidget> guard = this;
    view->saveAs(path);
    if (!guard)
        return;
    if (!oldPath.isEmpty())
        emit fileClosed(oldPath);
    if (oldIndex != -1)
        emit bufferDeleted(oldIndex);
    emit fileOpened(path);
}

void EdCodeTabWidget::saveAll()
{
    for (const QPointer<EdCodeView> &view : guarded(codeViews())) {
        if (view)
            save(indexOf(view));
    }
}

void EdCodeTabWidget::saveBuffers()
{
    for (const QPointer<EdCodeView> &view : guarded(codeViews())) {
        if (view && view->isBuffer())
            save(indexOf(view));
    }
}

void EdCodeTabWidget::undo()
{
    if (EdCodeView *view = currentCodeView())
        view->undo();
}

void EdCodeTabWidget::redo()
{
    if (EdCodeView *view = currentCodeView())
        view->redo();
}

void EdCodeTabWidget::cut()
{
    if (EdCodeView *view = currentCodeView())
        view->cut();
}

void EdCodeTabWidget::copy()
{
    if (EdCodeView *view = currentCodeView())
        view->copy();
}

void EdCodeTabWidget::paste()
{
    if (EdCodeView *view = currentCodeView())
        view->paste();
}

void EdCodeTabWidget::selectAll()
{
    if (EdCodeView *view = currentCodeView())
        view->selectAll();
}

void EdCodeTabWidget::clearText()
{
    if (EdCodeView *view = currentCodeView())
        view->clearText();
}

void EdCodeTabWidget::convertTabsToSpaces()
{
    if (EdCodeView *view = currentCodeView())
        view->convertTabsToSpaces();
}

void EdCodeTabWidget::setCursorSelection(int position, int anchor)
{
    if (EdCodeView *view = currentCodeView())
        view->setCursorSelection(position, anchor);
}

void EdCodeTabWidget::findReplace(const QString &findText, const QString &replaceText, int options)
{
    if (EdCodeView *view = currentCodeView())
        view->findReplace(findText, replaceText, options);
}

void EdCodeTabWidget::replace(const QString &text)
{
    if (EdCodeView *view = currentCodeView())
        view->replace(text);
}

void EdCodeTabWidget::setCodeEditFocus()
{
    if (EdCodeView *view = currentCodeView())
        view->setCodeEditFocus();
}

void EdCodeTabWidget::updateTabSettings()
{
    for (EdCodeView *view : stackedViews())
        view->updateTabsAndSpaces();
}

void EdCodeTabWidget::updateFontAndColors()
{
    for (EdCodeView *view : stackedViews())
        view->updateFontAndColors();
}

void EdCodeTabWidget::updateHiddenCharacters()
{
    for (EdCodeView *view : stackedViews())
        view->updateHiddenCharacters();
}

void EdCodeTabWidget::updateOverwriteMode()
{
    for (EdCodeView *view : stackedViews())
        view->updateOverwriteMode();
}

void EdCodeTabWidget::setActive(bool active)
{
    QPalette dimmed = palette();
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText})
        dimmed.setColor(role, palette().color(QPalette::Disabled, role));
    m_tabBar->setPalette(active ? QPalette() : dimmed);
}

void EdCodeTabWidget::setTabBarVisible(bool visible)
{
    // Even one that is visible already would get ready to be shown, which takes a while.
    if (m_tabBar->isHidden() == visible)
        m_tabBar->setVisible(visible);
}

void EdCodeTabWidget::setTabsMovable(bool movable)
{
    m_movable = movable;
}

void EdCodeTabWidget::setTabsClosable(bool closable)
{
    m_tabBar->setTabsClosable(closable);
}

void EdCodeTabWidget::setTabsDoubleClickToClose(bool doubleClickToClose)
{
    m_doubleClickToClose = doubleClickToClose;
}

// Buffers keep their label: their changes are never lost.
void EdCodeTabWidget::setModified(bool modified, EdCodeView *codeView)
{
    EdCodeView *view = codeView ? codeView : qobject_cast<EdCodeView *>(sender());
    const int tab = indexOf(view);
    if (tab >= 0 && !view->isBuffer())
        setTabText(tab, view->fileInfo().fileName() + QLatin1String(modified ? "*" : ""));
}

void EdCodeTabWidget::onFileRenamed(const QString &oldPath, const QString &newPath)
{
    if (EdCodeView *view = qobject_cast<EdCodeView *>(sender()))
        setModified(view->isModified(), view);
    emit fileRenamed(oldPath, newPath);
}

void EdCodeTabWidget::moveToOtherView()
{
    if (count() > 0)
        emit otherViewRequested(m_id, currentIndex());
}

void EdCodeTabWidget::closeAllButThis()
{
    emit closeAllButCurrent(m_id);
}

void EdCodeTabWidget::contextMenuSave()
{
    emit saveSelected();
}

void EdCodeTabWidget::contextMenuSaveAs()
{
    emit saveAsSelected();
}

void EdCodeTabWidget::inFocus()
{
    emit gainedFocus(m_id);
}

void EdCodeTabWidget::onOverwriteModeChange()
{
    emit overwriteModeChanged();
}

void EdCodeTabWidget::onCursorStatusChange()
{
    emit cursorStatusChanged();
}

void EdCodeTabWidget::onTextChange()
{
    emit textChanged();
}

void EdCodeTabWidget::onFindReplaceMessageChange(const QString &message)
{
    emit findReplaceMessageChanged(message);
}

void EdCodeTabWidget::quickHelp(const QString &message, bool ignoreWhenHidden)
{
    emit quickHelpSelected(message, ignoreWhenHidden);
}

void EdCodeTabWidget::onFileDrop(const QString &path)
{
    emit fileDropped(path, m_id);
}
