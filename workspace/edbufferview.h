// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/edopenlist.h"

// Lists the open buffers by their index and label, in a dock of the window. It only lists: what the
// user chooses is a signal, and the list changes when the central widget has done it.
class EdBufferView : public EdOpenList
{
    Q_OBJECT

public:
    explicit EdBufferView(QWidget *parent = nullptr);

public slots:
    // `id` is a buffer index; an unknown one is ignored. `info` chooses the icon.
    void addBuffer(int id, const QString &name, const QFileInfo &info);
    void removeBuffer(int id);
    void renameBuffer(int id, const QString &newName);
    // Null, as after the last entry was removed, selects nothing.
    void selectBuffer(QListWidgetItem *item);
    // The position is one of the viewport.
    void contextMenu(const QPoint &position);
    // These act on the entry of the context menu.
    void removeBuffer();
    void renameBuffer();

signals:
    void bufferSelected(int id);
    void removeBufferSelected(int id);
    void renameBufferSelected(int id);
};
