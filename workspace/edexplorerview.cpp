// SPDX-License-Identifier: MIT
#include "workspace/edexplorerview.h"

#include "compat/filesystem.h"
#include "preferences/preferences.h"
#include "workspace/edexplorertree.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const int listingDelay = 50; // ms after the view is shown
const int margin = 4;        // pixels
const QSize treeSize(256, 192);

QString nameOf(const QString &folder)
{
    const QString name = QDir(folder).dirName();
    return name.isEmpty() ? folder : name; // of a drive
}

QString parentOf(const QString &folder)
{
    return QFileInfo(QDir::cleanPath(folder)).absolutePath();
}

QString nearestFolder(QString path)
{
    while (!QFileInfo(path).isDir() && parentOf(path) != path)
        path = parentOf(path);
    return path;
}

} // namespace

EdExplorerView::EdExplorerView(QWidget *parent) : QWidget(parent) {}

// The same before and after it is filled, or the docks would move.
QSize EdExplorerView::sizeHint() const
{
    return treeSize;
}

QString EdExplorerView::filePath(const QModelIndex &index) const
{
    return m_tree ? m_tree->openablePath(index) : QString();
}

void EdExplorerView::setProjectDirectory(const QString &path)
{
    m_directory = path;
    if (m_tree)
        updateRoot();
}

void EdExplorerView::updateFilter()
{
    if (m_tree)
        m_tree->setHidesCompiledFiles(preferences().pythonHideCompiledFiles);
}

void EdExplorerView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_tree)
        QTimer::singleShot(listingDelay, this, SLOT(create()));
}

void EdExplorerView::create()
{
    if (m_tree) // shown twice within the delay
        return;
    m_tree = new EdExplorerTree;
    m_watcher = new QFileSystemWatcher(this);
    connect(m_watcher, SIGNAL(directoryChanged(QString)), SLOT(checkRoot()));
    connectTree();
    m_pages = new QStackedWidget;
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createHead());
    layout->addWidget(m_pages);
    m_pages->addWidget(m_tree);
    m_pages->addWidget(createHint());
    setFocusProxy(m_tree);
    updateFilter();
    updateRoot();
}

QWidget *EdExplorerView::createHead()
{
    m_name = new QLabel;
    m_name->setTextFormat(Qt::PlainText);
    // A long name is cut off rather than the dock made wider.
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_up = new QToolButton;
    m_up->setIcon(style()->standardIcon(QStyle::SP_FileDialogToParent));
    m_up->setToolTip(tr("Up"));
    QToolButton *choose = new QToolButton;
    choose->setText(QLatin1String("..."));
    choose->setToolTip(tr("Set Project Folder..."));
    connect(m_up, SIGNAL(clicked()), SLOT(goUp()));
    connect(choose, SIGNAL(clicked()), SLOT(chooseProjectDirectory()));
    QWidget *head = new QWidget;
    QHBoxLayout *layout = new QHBoxLayout(head);
    layout->setContentsMargins(margin, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_name);
    for (QToolButton *button : {m_up, choose}) {
        button->setAutoRaise(true);
        layout->addWidget(button);
    }
    return head;
}

QWidget *EdExplorerView::createHint()
{
    m_hint = new QLabel;
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->setWordWrap(true);
    m_hint->setEnabled(false); // quiet
    m_hint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QPushButton *choose = new QPushButton(tr("Set Project Folder..."));
    connect(choose, SIGNAL(clicked()), SLOT(chooseProjectDirectory()));
    QWidget *page = new QWidget;
    QVBoxLayout *layout = new QVBoxLayout(page);
    layout->addWidget(m_hint);
    layout->addWidget(choose, 0, Qt::AlignLeft);
    layout->addStretch();
    return page;
}

void EdExplorerView::connectTree()
{
    connect(m_tree, SIGNAL(doubleClicked(QModelIndex)), SIGNAL(doubleClicked(QModelIndex)));
    connect(m_tree, SIGNAL(openSelected(QString)), SIGNAL(openSelected(QString)));
    connect(m_tree, SIGNAL(fileOpened(QString)), SIGNAL(fileOpened(QString)));
    connect(m_tree, SIGNAL(fileRenamed(QString, QString)), SIGNAL(fileRenamed(QString, QString)));
    connect(m_tree, SIGNAL(fileDeleted(QString)), SIGNAL(fileDeleted(QString)));
    connect(m_tree, SIGNAL(rootSelected(QString)), SLOT(changeProjectDirectory(QString)));
}

void EdExplorerView::updateRoot()
{
    const bool exists = QFileInfo(m_directory).isDir();
    m_name->setText(nameOf(m_directory));
    m_name->setToolTip(QDir::toNativeSeparators(m_directory));
    m_up->setEnabled(parentOf(m_directory) != m_directory);
    m_hint->setText(
        tr("The project folder %1 does not exist.").arg(QDir::toNativeSeparators(m_directory)));
    if (!exists || isReplaced())
        m_tree->clear();
    if (isReplaced())
        m_watcher->removePaths(m_watcher->directories()); // which it would go on watching elsewhere
    if (exists)
        m_tree->setRoot(m_directory);
    m_pages->setCurrentIndex(exists ? 0 : 1);
    watch();
    m_listed = m_directory;
    m_listedNumber = compat::fileStamp(m_directory).number;
    m_isListedWatched = m_watcher->directories().contains(m_directory);
}

void EdExplorerView::checkRoot()
{
    const bool isShown = m_pages->currentIndex() == 0;
    if (QFileInfo(m_directory).isDir() != isShown || isReplaced())
        updateRoot();
    else
        watch(); // a folder above one that is missing may have come
}

// By another folder of the same name, of which the tree hears nothing: it goes on watching the one
// that was moved away.
bool EdExplorerView::isReplaced() const
{
    return m_listed == m_directory &&
           (m_listedNumber != compat::fileStamp(m_directory).number ||
            (m_isListedWatched && !m_watcher->directories().contains(m_directory)));
}

// Where it is missing, the folder that it would appear in; and what either lies in, for a folder is
// not told when it is moved itself.
void EdExplorerView::watch()
{
    const QString nearest = nearestFolder(m_directory);
    QStringList wanted(nearest);
    if (parentOf(nearest) != nearest)
        wanted << parentOf(nearest);
    const QStringList watched = m_watcher->directories();
    if (watched == wanted)
        return;
    if (!watched.isEmpty())
        m_watcher->removePaths(watched);
    m_watcher->addPaths(wanted);
}

void EdExplorerView::chooseProjectDirectory()
{
    changeProjectDirectory(QString());
}

void EdExplorerView::goUp()
{
    changeProjectDirectory(parentOf(m_directory));
}

void EdExplorerView::changeProjectDirectory(const QString &path)
{
    const QString chosen = !path.isEmpty()
                               ? path
                               : QFileDialog::getExistingDirectory(this, tr("Set Project Folder"),
                                                                   nearestFolder(m_directory));
    if (chosen.isEmpty() || chosen == m_directory)
        return;
    preferences().projectDir = chosen;
    setProjectDirectory(chosen);
    emit projectDirectoryChanged(chosen);
}
