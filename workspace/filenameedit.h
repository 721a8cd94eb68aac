// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QStyledItemDelegate>

// How long the name of a file is without its suffix.
int baseNameLength(const QString &name);

// For the name of a file in a view of QFileSystemModel's. It begins with all but the suffix
// selected.
class FileNameEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit FileNameEdit(QWidget *parent = nullptr);

    // Once: what is typed stays, whatever happens to the file. Of a folder a dot begins no suffix.
    void begin(const QString &name, bool isFolder);

private slots:
    void selectBaseName();

private:
    bool m_hasBegun = false;
    bool m_isFolder = false;
};

class FileNameDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
};
