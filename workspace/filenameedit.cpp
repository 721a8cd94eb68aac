// SPDX-License-Identifier: MIT
#include "workspace/filenameedit.h"

#include <QFileInfo>
#include <QFileSystemModel>
#include <QTimer>

int baseNameLength(const QString &name)
{
    const int dot = int(name.lastIndexOf(QLatin1Char('.')));
    return dot > 0 ? dot : int(name.size()); // a dot in front only hides the file
}

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
    if (!m_isFolder)
        setSelection(0, baseNameLength(text()));
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
