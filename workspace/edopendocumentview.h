// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/edopenlist.h"

// Lists the open files by their absolute path, shown as their names, in a dock of the window. It
// only lists: what the user chooses is a signal, and the list changes when the central widget has
// done it.
class EdOpenDocumentView : public EdOpenList
{
    Q_OBJECT

public:
    explicit EdOpenDocumentView(QWidget *parent = nullptr);

public slots:
    // Paths are absolute; an unknown one is ignored.
    void addDocument(const QString &path);
    void removeDocument(const QString &path);
    void renameDocument(const QString &oldPath, const QString &newPath);
    // Null, as after the last entry was removed, selects nothing.
    void selectDocument(QListWidgetItem *item);
    // The position is one of the viewport.
    void contextMenu(const QPoint &position);
    // These act on the entry of the context menu.
    void removeDocument();
    void renameDocument();

signals:
    void documentSelected(const QString &path);
    void removeDocumentSelected(const QString &path);
    void renameDocumentSelected(const QString &path);
};
