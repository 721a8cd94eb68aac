// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

class EdExplorerTree;
class QFileSystemWatcher;
class QLabel;
class QModelIndex;
class QStackedWidget;
class QToolButton;

// The files of the project folder, in a dock of the window: a head that names the folder and
// changes it, and the tree. Opens nothing itself. It is filled, and begins to watch the file
// system, a moment after it is first seen, so that the window need not wait for it. A project
// folder that is missing is said to be so, and shown once it is there.
class EdExplorerView : public QWidget
{
    Q_OBJECT

public:
    explicit EdExplorerView(QWidget *parent = nullptr);

    QString projectDirectory() const { return m_directory; }
    // Empty when the index is that of a directory, or there is no listing yet.
    QString filePath(const QModelIndex &index) const;

    QSize sizeHint() const override;

public slots:
    // The root of the tree; may be set before there is a listing.
    void setProjectDirectory(const QString &path);
    // These change the preference as well.
    void chooseProjectDirectory();
    void goUp();
    // Takes over what the preferences say about hidden files.
    void updateFilter();

signals:
    void doubleClicked(const QModelIndex &index);
    // Return on a file, or Open in its menu.
    void openSelected(const QString &path);
    // A new file was made, and waits to be opened.
    void fileOpened(const QString &path);
    // Files, or folders with all that they hold.
    void fileRenamed(const QString &oldPath, const QString &newPath);
    void fileDeleted(const QString &path);
    // By the user, here.
    void projectDirectoryChanged(const QString &path);

protected:
    void showEvent(QShowEvent *event) override;

private slots:
    void create();
    // Shows the project folder, or that it is missing.
    void updateRoot();
    // Does it where the folder has come, gone or is another one.
    void checkRoot();
    // Lets the user choose when the path is empty.
    void changeProjectDirectory(const QString &path);

private:
    QWidget *createHead();
    QWidget *createHint();
    void connectTree();
    void watch();
    bool isReplaced() const;

    QString m_directory;
    // As of the last listing:
    QString m_listed;
    quint64 m_listedNumber = 0; // of the folder in its file system
    bool m_isListedWatched = false;
    // All of these from the first listing on.
    EdExplorerTree *m_tree = nullptr;
    QLabel *m_name = nullptr;
    QToolButton *m_up = nullptr;
    QLabel *m_hint = nullptr;
    QStackedWidget *m_pages = nullptr; // the tree or the hint
    QFileSystemWatcher *m_watcher = nullptr;
};
