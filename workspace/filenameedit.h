// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QStyledItemDelegate>

// For the name of a file in a view. It begins with all but the suffix selected.
class FileNameEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit FileNameEdit(QWidget *parent = nullptr);

private slots:
    void selectBaseName();
};

class FileNameDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
};
