// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeView>

class QFileSystemModel;

// The tree of files of the project directory.
class EdExplorerView : public QTreeView
{
    Q_OBJECT

public:
    explicit EdExplorerView(QWidget *parent = nullptr);

    void setProjectDirectory(const QString &path);
    // Empty when the index is that of a directory.
    QString filePath(const QModelIndex &index) const;

signals:
    void openSelected(const QString &path);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QFileSystemModel *m_model;
};
