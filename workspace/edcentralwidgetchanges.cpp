// SPDX-License-Identifier: MIT
// What other programs do to the files of open documents.
#include "workspace/edcentralwidget.h"

#include "preferences/preferences.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/filewatch.h"
#include "workspace/flagscope.h"

#include <QMessageBox>

namespace {

// Closing the box in any other way is the answer `escape`.
bool isYes(QWidget *parent, const QString &title, const QString &question,
           QMessageBox::StandardButton escape)
{
    QMessageBox box(QMessageBox::Question, title, question, QMessageBox::Yes | QMessageBox::No,
                    parent);
    box.setTextFormat(Qt::PlainText); // of a path that may look like markup
    box.setEscapeButton(escape);
    box.exec();
    const QMessageBox::StandardButton clicked = box.standardButton(box.clickedButton());
    return (clicked == QMessageBox::NoButton ? escape : clicked) == QMessageBox::Yes;
}

// One for all windows: the questions are modal, and giving the focus back asks for a check again.
bool isChecking = false;

} // namespace

void EdCentralWidget::reloadFromDisk()
{
    const EdCodeView *view = currentCodeView();
    if (!view || view->isBuffer())
        return;
    const QString question = tr("Reloading this file will result in unsaved changes being lost.\n\n"
                                "Continue reloading?");
    if (view->isModified() && !isYes(window(), tr("Reload"), question, QMessageBox::No))
        return;
    active()->reload(active()->currentIndex());
    activeViewChange();
}

void EdCentralWidget::externalFileChange(const QString &path)
{
    QStringList &paths = QFileInfo(path).exists() ? m_changedFiles : m_missingFiles;
    if (!paths.contains(path))
        paths << path;
}

void EdCentralWidget::checkForFileChanges()
{
    if (isChecking)
        return;
    if (preferences().checkForModifiedFiles) {
        const FlagScope checking(&isChecking);
        m_watch->checkNow();
        noteMissingFiles();
        for (const QString &path : QStringList(m_changedFiles))
            askAboutChanged(path);
        for (const QString &path : QStringList(m_missingFiles))
            askAboutMissing(path);
    }
    m_changedFiles.clear();
    m_missingFiles.clear();
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
    EdCodeView *view = place ? place.pane->codeViewAt(place.tab) : nullptr;
    if (!view || view->isBuffer() || !view->isFileChanged())
        return;
    place.pane->setCurrentTab(place.tab);
    const QString question =
        path + tr("\n\nThis file has been modified by another program.\nDo you want to reload it?");
    const bool reloads = isYes(window(), tr("Reload"), question, QMessageBox::No);
    if (!reloads)
        view->ignoreFileChange();
    else if (const Place now = placeOf(view))
        now.pane->reload(now.tab);
}

void EdCentralWidget::askAboutMissing(const QString &path)
{
    if (QFileInfo(path).exists()) // there again, and watched all the while
        return;
    const Place place = placeOfFile(QFileInfo(path));
    EdCodeView *view = place ? place.pane->codeViewAt(place.tab) : nullptr;
    if (!view || view->isBuffer())
        return;
    place.pane->setCurrentTab(place.tab);
    const QString question =
        tr("The file ") + path + tr(" doesn't exist anymore.\nKeep this file in the editor?");
    const bool keeps = isYes(window(), tr("File Does Not Exist"), question, QMessageBox::Yes);
    const Place now = placeOf(view);
    if (now && keeps)
        view->forceModified();
    else if (now)
        now.pane->closeTab(now.tab);
}
