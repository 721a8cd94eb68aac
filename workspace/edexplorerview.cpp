// SPDX-License-Identifier: MIT
#include "workspace/edexplorerview.h"

#include <QFileSystemModel>
#include <QKeyEvent>
#include <QTimer>

namespace {

const int listingDelay = 50; // ms after the view is shown

} // namespace

EdExplorerView::EdExplorerView(QWidget *parent) : QTreeView(parent)
{
    setHeaderHidden(true);
}

void EdExplorerView::setProjectDirectory(const QString &path)
{
    m_directory = path;
    if (m_model)
        setRootIndex(m_model->setRootPath(path));
}

void EdExplorerView::showEvent(QShowEvent *event)
{
    QTreeView::showEvent(event);
    if (!m_model)
        QTimer::singleShot(listingDelay, this, SLOT(list()));
}

void EdExplorerView::list()
{
    if (m_model) // shown twice within the delay
        return;
    m_model = new QFileSystemModel(this);
    setModel(m_model);
    // Only the name: the dock is narrow.
    for (int column = 1; column < m_model->columnCount(); ++column)
        hideColumn(column);
    setProjectDirectory(m_directory);
}

QString EdExplorerView::filePath(const QModelIndex &index) const
{
    return !m_model || m_model->isDir(index) ? QString() : m_model->filePath(index);
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
