// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QPersistentModelIndex>
#include <QSortFilterProxyModel>

class QFileSystemModel;

// The files of the project as the Project View shows them: folders first, both in the order people
// count in, compiled Python files hidden, scripts with icons of their own. It looks at names only:
// asking the disk about each of thousands of files would take its time. What is below the root
// alone is filtered, not the folders that lead to it.
class EdExplorerFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    // The files are the source, and live at least as long.
    explicit EdExplorerFilterProxyModel(QFileSystemModel *files, QObject *parent = nullptr);

    // Begins to list the folder; returns its index.
    QModelIndex setRoot(const QString &path);
    void setHidesCompiledFiles(bool hides);

    QString filePath(const QModelIndex &index) const;
    bool isFolder(const QModelIndex &index) const;
    // Invalid when there is no such file. One that is new is listed at once.
    QModelIndex indexOf(const QString &path) const;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    // Every name can be edited.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    // Changes nothing: whoever shows the files renames them, and says why that failed.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

signals:
    void nameEntered(const QString &path, const QString &name);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    QFileSystemModel *m_files;
    QPersistentModelIndex m_root; // of the source
    bool m_hidesCompiledFiles = false;
    QIcon m_melIcon;
    QIcon m_pythonIcon;
};

// Without regard to case, and numbers by their value: "a2" before "A10". Names that differ only in
// case or in leading zeros have an order as well.
bool naturallyLess(const QString &left, const QString &right);
