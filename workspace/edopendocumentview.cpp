// SPDX-License-Identifier: MIT
#include "workspace/edopendocumentview.h"

#include <QPointer>

namespace {

QString documentPath(const QListWidgetItem *item)
{
    return item->data(Qt::UserRole).toString();
}

} // namespace

EdOpenDocumentView::EdOpenDocumentView(QWidget *parent) : EdOpenList(parent)
{
    connect(this, SIGNAL(currentItemChanged(QListWidgetItem *, QListWidgetItem *)),
            SLOT(selectDocument(QListWidgetItem *)));
    connect(this, SIGNAL(customContextMenuRequested(QPoint)), SLOT(contextMenu(QPoint)));
    // A click on the current item selects it again.
    connect(this, SIGNAL(itemClicked(QListWidgetItem *)), SLOT(selectDocument(QListWidgetItem *)));
}

void EdOpenDocumentView::addDocument(const QString &path)
{
    const QFileInfo info(path);
    addEntry(info.fileName(), path, info);
    findEntry(path)->setToolTip(path); // there may be several of one name
}

void EdOpenDocumentView::removeDocument(const QString &path)
{
    removeEntry(path);
}

void EdOpenDocumentView::renameDocument(const QString &oldPath, const QString &newPath)
{
    QListWidgetItem *item = findEntry(oldPath);
    if (!item)
        return;
    const QFileInfo info(newPath);
    // The identity first: a new text may move the item to another row.
    item->setData(Qt::UserRole, newPath);
    item->setIcon(iconOf(info));
    item->setToolTip(newPath);
    item->setText(info.fileName());
}

// The document takes the focus when it is selected; it is taken back, so that arrow keys go on
// here.
void EdOpenDocumentView::selectDocument(QListWidgetItem *item)
{
    if (!item)
        return;
    const QPointer<EdOpenDocumentView> guard = this; // showing a document may ask about its file
    emit documentSelected(documentPath(item));
    if (guard)
        setFocus(Qt::OtherFocusReason);
}

void EdOpenDocumentView::contextMenu(const QPoint &position)
{
    showContextMenu(position, SLOT(removeDocument()), SLOT(renameDocument()));
}

void EdOpenDocumentView::removeDocument()
{
    if (contextItem())
        emit removeDocumentSelected(documentPath(contextItem()));
}

void EdOpenDocumentView::renameDocument()
{
    if (contextItem())
        emit renameDocumentSelected(documentPath(contextItem()));
}
