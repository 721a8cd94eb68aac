// SPDX-License-Identifier: MIT
#include "workspace/filenameedit.h"

#include <QFileInfo>
#include <QFileSystemModel>
#include <QTimer>

FileNameEdit::FileNameEdit(QWidget *parent) : QLineEdit(parent)
{
    setFrame(false);
}

void FileNameEdit::begin(const QString &name, bool isFolder)
{
    if (m_hasBegun)
        return;
    m_hasBegun = true;
    m_isFolder = isFolder;
    setText(name);
    // Later: the view selects all of the text once it has set it.
    QTimer::singleShot(0, this, SLOT(selectBaseName()));
}

void FileNameEdit::selectBaseName()
{
    const int dot = int(text().lastIndexOf(QLatin1Char('.')));
    if (dot > 0 && !m_isFolder)
        setSelection(0, dot);
}

QWidget *FileNameDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                        const QModelIndex &) const
{
    return new FileNameEdit(parent);
}

void FileNameDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString path = index.data(QFileSystemModel::FilePathRole).toString();
    static_cast<FileNameEdit *>(editor)->begin(index.data(Qt::EditRole).toString(),
                                               QFileInfo(path).isDir());
}
