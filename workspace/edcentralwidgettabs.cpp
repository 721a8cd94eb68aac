// SPDX-License-Identifier: MIT
// Documents of both panes: opening, saving, renaming and closing them.
#include "workspace/edcentralwidget.h"

#include "compat/filesystem.h"
#include "licensing/license.h"
#include "preferences/preferences.h"
#include "workspace/choicebox.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/filewatch.h"
#include "workspace/flagscope.h"
#include "workspace/licenselimits.h"

#include <QMessageBox>
#include <QPointer>

EdCentralWidget::Place EdCentralWidget::placeOf(const EdCodeView *view) const
{
    for (EdCodeTabWidget *pane : m_panes) {
        const int tab = pane->indexOf(view);
        if (tab != -1)
            return {pane, tab};
    }
    return {};
}

EdCentralWidget::Place EdCentralWidget::placeOfBuffer(int bufferIndex) const
{
    for (const EdCodeView *view : codeViews()) {
        if (view->isBuffer() && view->bufferIndex() == bufferIndex)
            return placeOf(view);
    }
    return {};
}

EdCentralWidget::Place EdCentralWidget::placeOfFile(const QFileInfo &info) const
{
    const QString path = info.absoluteFilePath();
    const QList<EdCodeView *> views = codeViews();
    for (const EdCodeView *view : views) {
        if (view->fileInfo().absoluteFilePath() == path)
            return placeOf(view);
    }
    for (const EdCodeView *view : views) {
        if (compat::isSameFile(view->fileInfo().absoluteFilePath(), path))
            return placeOf(view);
    }
    return {};
}

void EdCentralWidget::showPlace(const Place &place)
{
    const EdCodeView *view = place.pane->codeViewAt(place.tab);
    setActiveTabWidgetIndex(place.pane->id()); // which may ask, and show and close others
    const Place now = placeOf(view);
    if (!now)
        return;
    activate(now.pane->id());
    now.pane->setCurrentTab(now.tab);
}

void EdCentralWidget::newBuffer()
{
    addBuffer(EdCodeView::Text);
}

void EdCentralWidget::newMelBuffer()
{
    addBuffer(EdCodeView::Mel);
}

void EdCentralWidget::newPythonBuffer()
{
    addBuffer(EdCodeView::Python);
}

bool EdCentralWidget::mayOpenAnother()
{
    return ::mayOpenAnother(this, m_panes.at(0)->count() + m_panes.at(1)->count());
}

void EdCentralWidget::addBuffer(int language)
{
    if (!mayOpenAnother())
        return;
    const int index = m_nextBufferIndex++;
    if (language == EdCodeView::Mel)
        active()->newMelBuffer(index);
    else if (language == EdCodeView::Python)
        active()->newPythonBuffer(index);
    else
        active()->newBuffer(index);
    onTabChange();
}

void EdCentralWidget::openFile(const QString &path)
{
    openFile(QFileInfo(path));
}

void EdCentralWidget::openFile(const QFileInfo &fileInfo)
{
    // Even a buffer's own file: two documents of it would overwrite each other's text.
    if (const Place place = placeOfFile(fileInfo)) {
        showPlace(place);
        return;
    }
    if (!mayOpenAnother())
        return;
    const int position = preferences().insertDocsOnLeft ? 0 : -1;
    if (active()->openFile(fileInfo, -1, position) == -1)
        return;
    giveBackChanges(currentCodeView());
    onTabChange();
}

void EdCentralWidget::save()
{
    const QPointer<EdCodeView> view = currentCodeView();
    if (!view || (view->isModified() && !view->isBuffer() && !mayWriteFiles(this)))
        return;
    if (mayOverwrite(view) && view)
        view->save(); // which may be current no more
}

void EdCentralWidget::saveAs(const QString &path)
{
    const QPointer<EdCodeView> view = currentCodeView();
    if (!view || path.isEmpty() || !mayWriteFiles(this))
        return;
    const QString target = QFileInfo(path).absoluteFilePath();
    const QPointer<EdCodeView> replaced = otherDocumentOf(target);
    if (!mayReplace(replaced) || currentCodeView() != view)
        return; // what was asked may even have closed it
    active()->saveAs(target);
    if (!view)
        return;
    if (view->isBuffer() || view->fileInfo().absoluteFilePath() != target)
        reportFailedSaveAs(*view, target);
    else
        closeDocument(replaced); // only now that its changes are really in vain
    if (view->isFileChanged())   // it failed, and what others did before is still to be asked about
        externalFileChange(view->fileInfo().absoluteFilePath());
    onTabChange(); // the language may be another one
}

// The pane reports a document as moved whether it could be written or not; the lists then go by
// what it still is.
void EdCentralWidget::reportFailedSaveAs(const EdCodeView &view, const QString &target)
{
    onFileClosed(target);
    if (view.isBuffer())
        onBufferCreated(view.bufferIndex(), active()->tabText(active()->currentIndex()),
                        view.fileInfo());
    else
        onFileOpened(view.fileInfo().absoluteFilePath());
}

// No file is ever open twice: the other document would ask whether to be reloaded, and overwrite
// this one when it is saved.
EdCodeView *EdCentralWidget::otherDocumentOf(const QString &path) const
{
    const Place place = placeOfFile(QFileInfo(path));
    EdCodeView *view = place ? place.pane->codeViewAt(place.tab) : nullptr;
    return view == currentCodeView() ? nullptr : view;
}

// False when it has changes that the user would rather keep. A buffer, whose file belongs to
// nobody else, is closed at once.
bool EdCentralWidget::mayReplace(const QPointer<EdCodeView> &view)
{
    if (!view)
        return true;
    if (view->isBuffer()) {
        const Place place = placeOf(view);
        place.pane->closeTab(place.tab); // which asks
        return !placeOf(view);
    }
    // Saving it first would be in vain.
    const QString question =
        tr("%1 is open and has unsaved changes, which will be lost.\nDo you want to replace it?")
            .arg(view->fileInfo().fileName());
    return !view->isModified() ||
           askYesNo(window(), tr("Save File"), question, QMessageBox::No, QMessageBox::No);
}

// Asks before the first is written. What the user would rather not overwrite keeps nothing else
// from being saved.
SaveResult EdCentralWidget::saveAll()
{
    if (!savingAllowed()) {
        saveBuffers();
        explainUnsavedFiles();
        return SaveResult::Done;
    }
    const QPointer<EdCentralWidget> self(this);
    QList<QPointer<EdCodeView>> agreed;
    bool isCancelled = false;
    for (const QPointer<EdCodeView> &view : EdCodeTabWidget::guarded(codeViews())) {
        const bool maySave = self && mayOverwrite(view);
        isCancelled |= !maySave;
        if (maySave)
            agreed << view;
    }
    bool hasFailed = false;
    for (const QPointer<EdCodeView> &view : agreed) {
        if (view && view->isModified())
            hasFailed |= !view->write(view->fileInfo().absoluteFilePath(), view->isBuffer());
    }
    if (isCancelled)
        return SaveResult::Cancelled;
    return hasFailed ? SaveResult::Failed : SaveResult::Done;
}

void EdCentralWidget::explainUnsavedFiles()
{
    for (const EdCodeView *view : codeViews()) {
        if (view->isModified() && !view->isBuffer()) {
            mayWriteFiles(this);
            return; // once for all
        }
    }
}

void EdCentralWidget::saveBuffers()
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->saveBuffers();
}

void EdCentralWidget::rename()
{
    active()->rename();
}

void EdCentralWidget::renameBuffer(int bufferIndex)
{
    renameAt(placeOfBuffer(bufferIndex));
}

void EdCentralWidget::renameFile(const QString &path)
{
    renameAt(placeOfFile(QFileInfo(path)));
}

void EdCentralWidget::followRenamed(const QString &oldPath, const QString &newPath)
{
    const QString folder = oldPath + QLatin1Char('/');
    for (EdCodeView *view : codeViews()) {
        const QString path = view->fileInfo().absoluteFilePath();
        if (path == oldPath || path.startsWith(folder))
            view->followFile(newPath + path.mid(oldPath.size()));
    }
}

void EdCentralWidget::renameAt(const Place &place)
{
    if (place)
        place.pane->rename(place.tab);
}

void EdCentralWidget::closeActive()
{
    closeAt(placeOf(currentCodeView()));
}

void EdCentralWidget::closeBuffer(int bufferIndex)
{
    closeAt(placeOfBuffer(bufferIndex));
}

void EdCentralWidget::closeFile(const QString &path)
{
    closeAt(placeOfFile(QFileInfo(path)));
}

void EdCentralWidget::closeAt(const Place &place)
{
    if (place)
        place.pane->closeTab(place.tab);
}

void EdCentralWidget::focusBuffer(int bufferIndex)
{
    if (const Place place = placeOfBuffer(bufferIndex))
        showPlace(place);
}

void EdCentralWidget::closeAll()
{
    closeTabsBut(nullptr);
}

void EdCentralWidget::closeAllButCurrent()
{
    closeTabsBut(currentCodeView());
}

void EdCentralWidget::closeAllButCurrent(int tabWidgetId)
{
    closeTabsBut(m_panes.at(paneId(tabWidgetId))->currentCodeView());
}

// Files are asked about before the first is closed, so that Cancel leaves all of them; a buffer
// that the user keeps keeps no other.
void EdCentralWidget::closeTabsBut(EdCodeView *keptView)
{
    const QPointer<EdCodeView> kept = keptView;
    checkForFileChanges(); // not in the midst of it
    if (keptView && (!kept || !placeOf(kept)))
        return;
    // Another one may have been shown, and panes leave out the current one from their questions.
    if (kept)
        showPlace(placeOf(kept));
    for (EdCodeTabWidget *pane : m_panes) {
        // The pane takes it the other way round: with true no tab is left out.
        if (!pane->promptAllUnsaved(pane->indexOf(kept) == -1))
            return;
    }
    {
        // Not one parse for each document that is current for a moment.
        const FlagScope ignoring(&m_ignoresTabs);
        for (const EdCodeView *view : codeViews()) {
            const Place place = placeOf(view);
            if (view != kept && place && mayBeClosed(place))
                place.pane->forceCloseTab(place.tab);
        }
    }
    onTabChange();
}

bool EdCentralWidget::mayBeClosed(const Place &place)
{
    return !place.pane->codeViewAt(place.tab)->isBuffer() ||
           !preferences().confirmCloseTemporaryBuffer || place.pane->confirmCloseBuffer(place.tab);
}
