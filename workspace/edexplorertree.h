// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTreeView>

class EdExplorerFilterProxyModel;
class QAction;
class QFileSystemModel;
class QUrl;

// The tree of the Project View: shows the files below a folder and does with them what its menu and
// its keys say. Opens nothing itself. Of several selected files all are copied or deleted.
class EdExplorerTree : public QTreeView
{
    Q_OBJECT

public:
    explicit EdExplorerTree(QWidget *parent = nullptr);

    // Lists a folder, which must exist, and goes on watching it.
    void setRoot(const QString &path);
    // Until the next root nothing is listed or watched.
    void clear();
    void setHidesCompiledFiles(bool hides);

    // Empty when the index is that of a folder.
    QString openablePath(const QModelIndex &index) const;

signals:
    // A file was chosen to be opened, or was just made.
    void openSelected(const QString &path);
    void fileOpened(const QString &path);
    // Either may be a folder, with all that it holds.
    void fileRenamed(const QString &oldPath, const QString &newPath);
    void fileDeleted(const QString &path);
    // A folder, empty for one yet to be chosen, is to be the root.
    void rootSelected(const QString &path);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void startDrag(Qt::DropActions actions) override;

protected slots:
    void rowsInserted(const QModelIndex &parent, int first, int last) override;

private slots:
    void runChosen(QAction *action);
    void selectAwaited();
    void renameFile(const QString &path, const QString &name);

private:
    struct Command;
    static const Command commands[];

    const Command *commandFor(const QKeyEvent *event) const;
    bool isPossible(const Command &command) const;
    // Whether a name is being typed into the tree, and the keys are for it.
    bool isNaming() const;

    void open();
    void newFile();
    void newFolder();
    void copy();
    void paste();
    void copyPath();
    void rename();
    void remove();
    void showInFolder();
    void makeRoot();
    void chooseRoot();
    void goToParent();

    // Of fileoperations.h: a folder, a name, the reason of a failure.
    using Maker = QString (*)(const QString &, const QString &, QString *);

    // Asks for a name; the path is empty when there is nothing new.
    QString make(const QString &title, const QString &label, Maker maker);
    static QList<QUrl> clipboardFiles();
    // The first of those selected, which need not be the current one.
    QModelIndex selectedEntry() const;
    QStringList selectedPaths() const;
    // The folder that new files go to: the selected one, that of the selected file, or the root.
    QString targetFolder() const;
    // Makes it the only selected file, also when it is listed late or once more.
    void select(const QString &path);
    void complain(const QString &text);

    QString m_root;
    QString m_awaited; // to be selected; empty once the user goes elsewhere
    bool m_hidesCompiledFiles = false;
    QFileSystemModel *m_files = nullptr; // both until the first root
    EdExplorerFilterProxyModel *m_filter = nullptr;
};
