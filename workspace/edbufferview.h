// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/edopenlist.h"

// Lists the open buffers by their index and label.
class EdBufferView : public EdOpenList
{
    Q_OBJECT

public:
    explicit EdBufferView(QWidget *parent = nullptr);

public slots:
    void addBuffer(int id, const QString &name, const QFileInfo &info);
    void removeBuffer(int id);
    void renameBuffer(int id, const QString &newName);
    void selectBuffer(QListWidgetItem *item);
    // These act on the entry of the context menu.
    void removeBuffer();
    void renameBuffer();

signals:
    void bufferSelected(int id);
    void removeBufferSelected(int id);
    void renameBufferSelected(int id);

protected:
    void fillContextMenu(QMenu *menu) override;
};
