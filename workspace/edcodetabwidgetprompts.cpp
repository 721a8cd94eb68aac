// SPDX-License-Identifier: MIT
// What a pane asks the user, and the menus of its tabs.
#include "workspace/edcodetabwidget.h"

#include "editor/edcodeedit.h"
#include "licensing/license.h"
#include "preferences/preferences.h"
#include "workspace/choicebox.h"
#include "workspace/edcodetabbar.h"
#include "workspace/edcodeview.h"

#include <QMenu>
#include <QTextDocument>

SaveAnswer EdCodeTabWidget::promptSave(int tabIndex)
{
    if (savingAllowed())
        return askToSave(this, documentName(tabIndex));
    // Nothing is lost by closing, so there is nothing to ask, as long as the changes come back.
    EdCodeView *view = codeViewAt(tabIndex);
    const bool isKept = view && view->keepChanges();
    return isKept || askToLose(documentName(tabIndex)) ? SaveAnswer::Discard : SaveAnswer::Cancel;
}

bool EdCodeTabWidget::askToLose(const QString &name)
{
    const QString question = tr("The changes of '%1' cannot be kept now, and the demo does not "
                                "save.\n\nClose it and lose them?");
    return askYesNo(this, tr("Demo"), question.arg(name), QMessageBox::No, QMessageBox::No);
}

bool EdCodeTabWidget::promptAllUnsaved(bool ignoreCurrent)
{
    const EdCodeView *skipped = ignoreCurrent ? nullptr : currentCodeView();
    for (const QPointer<EdCodeView> &view : guarded(codeViews())) {
        if (!view || view == skipped || view->isBuffer() || !view->isModified())
            continue;
        if (indexOf(view) < 0)
            continue; // closed, and yet to be deleted
        const SaveAnswer answer = promptSave(indexOf(view));
        if (answer == SaveAnswer::Cancel || (answer == SaveAnswer::Save && !saveForClosing(view)))
            return false;
    }
    return true;
}

bool EdCodeTabWidget::confirmCloseBuffer(int tabIndex)
{
    const EdCodeView *view = codeViewAt(tabIndex);
    if (!view || view->codeEdit()->document()->isEmpty())
        return true;
    const QString question =
        tr("Delete buffer '%1'?\n\nUnsaved contents will be lost.").arg(tabText(tabIndex));
    // Nothing is thrown away by a Return that was meant for something else.
    return askChoice(this, tr("Delete"), question, QStringList() << tr("Yes") << tr("No"),
                     QMessageBox::ActionRole, 1) == 0;
}

void EdCodeTabWidget::closeTab(int tabIndex)
{
    const QPointer<EdCodeView> view = codeViewAt(tabIndex);
    if (!view)
        return;
    const bool mayClose = view->isBuffer() ? !preferences().confirmCloseTemporaryBuffer ||
                                                 confirmCloseBuffer(tabIndex)
                                           : mayCloseFile(view);
    // Its index may be another one by now.
    if (mayClose)
        forceCloseTab(indexOf(view));
}

bool EdCodeTabWidget::mayCloseFile(EdCodeView *closing)
{
    if (!closing->isModified())
        return true;
    const QPointer<EdCodeView> view = closing;
    const SaveAnswer answer = promptSave(indexOf(view));
    return answer == SaveAnswer::Save ? saveBeforeClosing(view) : answer == SaveAnswer::Discard;
}

// Shows the document while it is saved, and longer if that fails.
bool EdCodeTabWidget::saveBeforeClosing(const QPointer<EdCodeView> &view)
{
    const QPointer<EdCodeView> current = currentCodeView();
    const bool currentIsSaved = saveForClosing(current); // Deliberate: whichever is current.
    if (!view || view == current)
        return currentIsSaved;
    setCurrentTab(indexOf(view));
    if (!saveForClosing(view))
        return false;
    setCurrentTab(indexOf(current));
    return true;
}

// False also when the listener has brought the file's text in: the user's is in no file then, and
// only an open document can undo that.
bool EdCodeTabWidget::saveForClosing(const QPointer<EdCodeView> &view)
{
    bool maySave = true;
    if (view && view->isModified())
        emit aboutToSave(view, &maySave);
    if (!maySave || !view || !view->isModified())
        return false;
    view->save();
    return view && !view->isModified();
}

int EdCodeTabWidget::takeContextTab()
{
    const int tab = m_contextTab;
    m_contextTab = -1;
    return tab;
}

void EdCodeTabWidget::forgetContextTab()
{
    m_contextTab = -1;
}

void EdCodeTabWidget::contextCloseTab()
{
    closeTab(takeContextTab());
}

void EdCodeTabWidget::rename()
{
    const int tab = takeContextTab();
    rename(tab >= 0 ? tab : currentIndex());
}

void EdCodeTabWidget::rename(int tabIndex)
{
    const QPointer<EdCodeView> view = codeViewAt(tabIndex);
    if (!view)
        return;
    const QString oldName = view->isBuffer() ? tabText(tabIndex) : view->fileInfo().fileName();
    const auto ask = view->isBuffer() ? &askText : &askFileName;
    const QString name = ask(this, tr("Rename"), tr("New Name:"), oldName).value_or(QString());
    if (name.isEmpty() || !view)
        return;
    if (!view->isBuffer()) {
        view->rename(name);
        return;
    }
    setTabText(indexOf(view), name);
    emit bufferRenamed(view->bufferIndex(), name);
}

// Not one that waits: what it is about may be closed while it is open.
QMenu *EdCodeTabWidget::newMenu()
{
    QMenu *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    return menu;
}

void EdCodeTabWidget::contextMenu(const QPoint &position)
{
    const int tab = m_tabBar->tabAt(position);
    setCurrentTab(tab); // which may scroll the bar; some of the commands are about the current tab
    m_contextTab = tab < 0 ? -1 : currentIndex();
    if (m_contextTab < 0)
        return;
    QMenu *menu = newMenu();
    // Only after the choice, which needs the tab.
    connect(menu, SIGNAL(destroyed()), SLOT(forgetContextTab()));
    menu->addAction(tr("Close"), this, SLOT(contextCloseTab()));
    if (preferences().closeAllButThis)
        menu->addAction(tr("Close All But This"), this, SLOT(closeAllButThis()));
    menu->addSeparator();
    menu->addAction(tr("Save"), this, SLOT(contextMenuSave()));
    menu->addAction(tr("Save As"), this, SLOT(contextMenuSaveAs()));
    menu->addAction(tr("Rename..."), this, SLOT(rename()));
    menu->addSeparator();
    menu->addAction(tr("Move to Other View"), this, SLOT(moveToOtherView()));
    menu->popup(m_tabBar->mapToGlobal(position));
}

void EdCodeTabWidget::tabMoveContextMenu(const QPoint &globalPos)
{
    QMenu *menu = newMenu();
    menu->addAction(tr("Move to Other View"), this, SLOT(moveToOtherView()));
    menu->popup(globalPos);
}
