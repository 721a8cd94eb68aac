// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTreeView>

class QFileSystemModel;

// The tree of files of the project directory, in a dock of the window. Opens nothing itself. It
// begins to watch the file system a moment after it is first seen, so that the window need not wait
// for it.
class EdExplorerView : public QTreeView
{
    Q_OBJECT

public:
    explicit EdExplorerView(QWidget *parent = nullptr);

    // The root of the tree; may be set before there is a listing.
    void setProjectDirectory(const QString &path);
    // Empty when the index is that of a directory, or there is no listing yet.
    QString filePath(const QModelIndex &index) const;

signals:
    // Return on a file; double clicks are QTreeView's own signal.
    void openSelected(const QString &path);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private slots:
    void list();

private:
    QString m_directory;
    QFileSystemModel *m_model = nullptr; // until the first listing
};
