// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/edopenlist.h"

// Lists the open files by their absolute path.
class EdOpenDocumentView : public EdOpenList
{
    Q_OBJECT

public:
    explicit EdOpenDocumentView(QWidget *parent = nullptr);

public slots:
    void addDocument(const QString &path);
    void removeDocument(const QString &path);
    void renameDocument(const QString &oldPath, const QString &newPath);
    void selectDocument(QListWidgetItem *item);
    // These act on the entry of the context menu.
    void removeDocument();
    void renameDocument();

signals:
    void documentSelected(const QString &path);
    void removeDocumentSelected(const QString &path);
    void renameDocumentSelected(const QString &path);

protected:
    void fillContextMenu(QMenu *menu) override;
};
