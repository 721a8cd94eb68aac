// SPDX-License-Identifier: MIT
#include "workspace/edexplorerview.h"

#include <QFileSystemModel>
#include <QKeyEvent>

EdExplorerView::EdExplorerView(QWidget *parent)
    : QTreeView(parent), m_model(new QFileSystemModel(this))
{
    setModel(m_model);
    setHeaderHidden(true);
    // Only the name: the dock is narrow.
    for (int column = 1; column < m_model->columnCount(); ++column)
        hideColumn(column);
}

void EdExplorerView::setProjectDirectory(const QString &path)
{
    setRootIndex(m_model->setRootPath(path));
}

QString EdExplorerView::filePath(const QModelIndex &index) const
{
    return m_model->isDir(index) ? QString() : m_model->filePath(index);
}

void EdExplorerView::keyPressEvent(QKeyEvent *event)
{
    const bool open = event->key() == Qt::Key_Return && event->modifiers() == Qt::NoModifier;
    const QString path = open ? filePath(currentIndex()) : QString();
    if (path.isEmpty())
        QTreeView::keyPressEvent(event);
    else
        emit openSelected(path);
}
