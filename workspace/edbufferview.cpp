// SPDX-License-Identifier: MIT
#include "workspace/edbufferview.h"

#include <QPointer>

namespace {

int bufferIndex(const QListWidgetItem *item)
{
    return item->data(Qt::UserRole).toInt();
}

} // namespace

EdBufferView::EdBufferView(QWidget *parent) : EdOpenList(parent)
{
    connect(this, SIGNAL(currentItemChanged(QListWidgetItem *, QListWidgetItem *)),
            SLOT(selectBuffer(QListWidgetItem *)));
    connect(this, SIGNAL(customContextMenuRequested(QPoint)), SLOT(contextMenu(QPoint)));
    // A click on the current item selects it again.
    connect(this, SIGNAL(itemClicked(QListWidgetItem *)), SLOT(selectBuffer(QListWidgetItem *)));
}

void EdBufferView::addBuffer(int id, const QString &name, const QFileInfo &info)
{
    addEntry(name, id, info);
}

void EdBufferView::removeBuffer(int id)
{
    removeEntry(id);
}

void EdBufferView::renameBuffer(int id, const QString &newName)
{
    if (QListWidgetItem *item = findEntry(id))
        item->setText(newName);
}

// The document takes the focus when it is selected; it is taken back, so that arrow keys go on
// here.
void EdBufferView::selectBuffer(QListWidgetItem *item)
{
    if (!item)
        return;
    const QPointer<EdBufferView> guard = this; // showing a document may ask about its file
    emit bufferSelected(bufferIndex(item));
    if (guard)
        setFocus(Qt::OtherFocusReason);
}

void EdBufferView::contextMenu(const QPoint &position)
{
    showContextMenu(position, SLOT(removeBuffer()), SLOT(renameBuffer()));
}

void EdBufferView::removeBuffer()
{
    if (contextItem())
        emit removeBufferSelected(bufferIndex(contextItem()));
}

void EdBufferView::renameBuffer()
{
    if (contextItem())
        emit renameBufferSelected(bufferIndex(contextItem()));
}
