// SPDX-License-Identifier: MIT
#include "workspace/filenameedit.h"

#include <QTimer>

FileNameEdit::FileNameEdit(QWidget *parent) : QLineEdit(parent)
{
    setFrame(false);
    // Later: the view selects all of the text once it has set it.
    QTimer::singleShot(0, this, SLOT(selectBaseName()));
}

void FileNameEdit::selectBaseName()
{
    const int dot = int(text().lastIndexOf(QLatin1Char('.')));
    if (dot > 0)
        setSelection(0, dot);
}

QWidget *FileNameDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                        const QModelIndex &) const
{
    return new FileNameEdit(parent);
}
