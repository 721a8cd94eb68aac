// SPDX-License-Identifier: MIT
// What other programs do to the files of open documents.
#include "workspace/edcentralwidget.h"

#include "preferences/preferences.h"
#include "workspace/choicebox.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/filewatch.h"
#include "workspace/flagscope.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

namespace {

// One for all windows: the questions are modal, and giving the focus back asks for a check again.
bool isChecking = false;

} // namespace

void EdCentralWidget::reloadFromDisk()
{
    const QPointer<EdCodeView> view = currentCodeView();
    if (!view || view->isBuffer())
        return;
    const QString question = tr("Reloading this file will result in unsaved changes being lost.\n\n"
                                "Continue reloading?");
    if (view->isModified() &&
        !askYesNo(window(), tr("Reload"), question, QMessageBox::Yes, QMessageBox::No))
        return;
    reload(view);
}

void EdCentralWidget::reload(const EdCodeView *view)
{
    const Place place = placeOf(view);
    if (!place)
        return;
    place.pane->reload(place.tab);
    activeViewChange();
}

void EdCentralWidget::externalFileChange(const QString &path)
{
    QStringList &paths = QFileInfo(path).exists() ? m_changedFiles : m_missingFiles;
    if (!paths.contains(path))
        paths << path;
}

// Not while another dialog is open, which is about a document that must stay the current one. The
// focus that comes back after it leads here again.
void EdCentralWidget::checkForFileChanges()
{
    if (isChecking || QApplication::activeModalWidget())
        return;
    if (!preferences().checkForModifiedFiles) {
        m_changedFiles.clear();
        m_missingFiles.clear();
        return;
    }
    const FlagScope checking(&isChecking);
    m_watch->checkNow();
    noteMissingFiles();
    const QPointer<EdCentralWidget> self(this);
    // One at a time: more may be reported while a question is open.
    while (self && !m_changedFiles.isEmpty())
        askAboutChanged(m_changedFiles.takeFirst());
    while (self && !m_missingFiles.isEmpty())
        askAboutMissing(m_missingFiles.takeFirst());
}

// What others have written meanwhile, and nobody may have told of yet, is not overwritten unasked:
// even within a check, which has come to close a document. Other files can wait. False when nothing
// is to be written.
bool EdCentralWidget::mayOverwrite(const QPointer<EdCodeView> &view)
{
    const bool isToBeWritten = view && !view->isBuffer() && view->isModified();
    if (!isToBeWritten || !preferences().checkForModifiedFiles || !view->hasForeignFile())
        return true;
    const FlagScope checking(&isChecking);
    return askToOverwrite(view);
}

// False also when the file could not be loaded again.
bool EdCentralWidget::askToOverwrite(const QPointer<EdCodeView> &view)
{
    const Place place = placeOf(view);
    if (!place)
        return true; // closed meanwhile
    place.pane->setCurrentTab(place.tab);
    const QString question = view->fileInfo().absoluteFilePath() +
                             tr("\n\nThis file has been modified by another program.\n"
                                "Do you want to overwrite it?");
    enum { Overwrite, Reload, Cancel };
    const int answer = askChoice(window(), tr("Save"), question,
                                 QStringList() << tr("Overwrite") << tr("Reload") << tr("Cancel"),
                                 QMessageBox::RejectRole, Cancel);
    if (!view)
        return false;
    if (answer == Reload) {
        reload(view);
        return view && !view->isModified();
    }
    view->ignoreFileChange(); // getting the focus back does not ask once more
    return answer == Overwrite;
}

void EdCentralWidget::askBeforeSaving(EdCodeView *view, bool *maySave)
{
    *maySave = mayOverwrite(view);
}

// Of documents that count as saved. A file that this program brought back, and others removed again
// at once, looks to the watch as before.
void EdCentralWidget::noteMissingFiles()
{
    for (const EdCodeView *view : codeViews()) {
        if (!view->isBuffer() && !view->isModified() && view->isFileMissing())
            externalFileChange(view->fileInfo().absoluteFilePath());
    }
}

// A file that the program itself wrote, or that somebody else only touched, is what the document
// has seen of it.
void EdCentralWidget::askAboutChanged(const QString &path)
{
    if (!QFileInfo(path).exists()) {
        externalFileChange(path); // which it may be known to be already
        return;
    }
    const Place place = placeOfFile(QFileInfo(path));
    const QPointer<EdCodeView> view = place ? place.pane->codeViewAt(place.tab) : nullptr;
    if (!view || view->isBuffer() || !view->isFileChanged())
        return;
    place.pane->setCurrentTab(place.tab);
    const QString question =
        path + tr("\n\nThis file has been modified by another program.\nDo you want to reload it?");
    const bool reloads =
        askYesNo(window(), tr("Reload"), question, QMessageBox::Yes, QMessageBox::No);
    if (view && reloads)
        reload(view);
    else if (view)
        view->ignoreFileChange();
}

void EdCentralWidget::askAboutMissing(const QString &path)
{
    if (QFileInfo(path).exists()) // there again, and watched all the while
        return;
    const Place place = placeOfFile(QFileInfo(path));
    const QPointer<EdCodeView> view = place ? place.pane->codeViewAt(place.tab) : nullptr;
    if (!view || view->isBuffer())
        return;
    place.pane->setCurrentTab(place.tab);
    const QString question =
        tr("The file ") + path + tr(" doesn't exist anymore.\nKeep this file in the editor?");
    const bool keeps =
        askYesNo(window(), tr("File Does Not Exist"), question, QMessageBox::Yes, QMessageBox::Yes);
    if (view && keeps)
        view->forceModified();
    else if (view)
        closeAt(placeOf(view));
}
