// SPDX-License-Identifier: MIT
#include "workspace/edexplorertree.h"

#include "compat/icon.h"
#include "workspace/edexplorerfilterproxymodel.h"
#include "workspace/filenameedit.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QItemSelectionModel>
#include <QMenu>
#include <QUrl>

namespace {

const int iconPixels = 16;

enum class Needs { Nothing, Root, OneEntry, OneFolder, Entries, Clipboard };

} // namespace

// A row without a text is a line of the menu when it has no function, or else only a key.
struct EdExplorerTree::Command
{
    const char *text;
    const char *icon;
    const char *keys[2];
    Needs needs;
    void (EdExplorerTree::*run)();
};

// In the order of the menu.
const EdExplorerTree::Command EdExplorerTree::commands[] = {
    {QT_TR_NOOP("Open"), "openScript", {"Return", "Enter"}, Needs::OneEntry, &EdExplorerTree::open},
    {QT_TR_NOOP("Show in Folder"), "showInFolder", {}, Needs::Root, &EdExplorerTree::showInFolder},
    {},
    {QT_TR_NOOP("New File..."), "newFile", {}, Needs::Root, &EdExplorerTree::newFile},
    {QT_TR_NOOP("New Folder..."), "newFolder", {}, Needs::Root, &EdExplorerTree::newFolder},
    {},
    {QT_TR_NOOP("Copy"), "copy", {"Ctrl+C", "Ctrl+Ins"}, Needs::Entries, &EdExplorerTree::copy},
    {QT_TR_NOOP("Copy Path"), nullptr, {}, Needs::Entries, &EdExplorerTree::copyPath},
    {QT_TR_NOOP("Paste"),
     "paste",
     {"Ctrl+V", "Shift+Ins"},
     Needs::Clipboard,
     &EdExplorerTree::paste},
    {},
    {QT_TR_NOOP("Rename"), nullptr, {"F2"}, Needs::OneEntry, &EdExplorerTree::rename},
    {QT_TR_NOOP("Delete"), nullptr, {"Del"}, Needs::Entries, &EdExplorerTree::remove},
    {},
    {QT_TR_NOOP("Use as Project Folder"), nullptr, {}, Needs::OneFolder, &EdExplorerTree::makeRoot},
    {QT_TR_NOOP("Set Project Folder..."), nullptr, {}, Needs::Nothing, &EdExplorerTree::chooseRoot},
    {nullptr, nullptr, {"Backspace"}, Needs::OneEntry, &EdExplorerTree::goToParent},
};

EdExplorerTree::EdExplorerTree(QWidget *parent) : QTreeView(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true); // or each of thousands of rows is measured
    setIconSize(QSize(iconPixels, iconPixels));
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers); // a key of our own starts it, the same on every system
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    setItemDelegate(new FileNameDelegate(this));
}

void EdExplorerTree::setRoot(const QString &path)
{
    m_root = QDir::cleanPath(path); // as the model has it
    if (!m_files) {
        m_files = new QFileSystemModel(this);
        // A path is that of the link, not of what it leads to and what would be deleted with it.
        m_files->setResolveSymlinks(false);
        m_filter = new EdExplorerFilterProxyModel(m_files, this);
        m_filter->setHidesCompiledFiles(m_hidesCompiledFiles);
        connect(m_filter, SIGNAL(nameEntered(QString, QString)), SLOT(renameFile(QString, QString)),
                Qt::QueuedConnection); // the editor closes first
        setModel(m_filter);
        // Only the name: the dock is narrow.
        for (int column = 1; column < m_filter->columnCount(); ++column)
            hideColumn(column);
    }
    setRootIndex(m_filter->setRoot(path));
}

// The models go as well: one that lost its root does not list it when it comes back.
void EdExplorerTree::clear()
{
    m_root.clear();
    setModel(nullptr);
    delete m_filter;
    delete m_files;
    m_filter = nullptr;
    m_files = nullptr;
}

void EdExplorerTree::setHidesCompiledFiles(bool hides)
{
    m_hidesCompiledFiles = hides;
    if (m_filter)
        m_filter->setHidesCompiledFiles(hides);
}

QString EdExplorerTree::openablePath(const QModelIndex &index) const
{
    return !m_filter || m_filter->isFolder(index) ? QString() : m_filter->filePath(index);
}

// The window has some of the keys for its document; with the focus here they mean files, and while
// a name is typed nothing but its end.
bool EdExplorerTree::event(QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return QTreeView::event(event);
    const Command *command = commandFor(static_cast<QKeyEvent *>(event));
    if (!command || !(isNaming() || isPossible(*command)))
        return QTreeView::event(event);
    event->accept();
    return true;
}

void EdExplorerTree::keyPressEvent(QKeyEvent *event)
{
    if (isNaming()) // the name's editor has had its turn, and leaves Return to others
        return;
    m_awaited.clear();
    const Command *command = commandFor(event);
    if (!command)
        QTreeView::keyPressEvent(event);
    else if (isPossible(*command))
        (this->*command->run)();
    else
        event->ignore();
}

bool EdExplorerTree::isNaming() const
{
    return state() == EditingState && !hasFocus();
}

const EdExplorerTree::Command *EdExplorerTree::commandFor(const QKeyEvent *event) const
{
    const QKeySequence pressed(int(event->modifiers() & ~Qt::KeypadModifier) | event->key());
    for (const Command &command : commands) {
        for (const char *keys : command.keys) {
            if (keys && pressed == QKeySequence(QString::fromLatin1(keys)))
                return &command;
        }
    }
    return nullptr;
}

bool EdExplorerTree::isPossible(const Command &command) const
{
    const int count = int(selectedPaths().size());
    switch (command.needs) {
    case Needs::Nothing:
        return true;
    case Needs::Root:
        return !m_root.isEmpty();
    case Needs::OneEntry:
        return count == 1;
    case Needs::OneFolder:
        return count == 1 && m_filter->isFolder(selectedEntry());
    case Needs::Entries:
        return count > 0;
    case Needs::Clipboard:
        return !m_root.isEmpty() && !clipboardFiles().isEmpty();
    }
    return false;
}

void EdExplorerTree::mousePressEvent(QMouseEvent *event)
{
    m_awaited.clear();
    QTreeView::mousePressEvent(event);
}

// For the selected files, or for the root where there are none.
void EdExplorerTree::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Command &command : commands) {
        if (!command.run)
            menu->addSeparator();
        if (!command.text)
            continue;
        QAction *action = menu->addAction(tr(command.text));
        action->setData(int(&command - commands));
        action->setEnabled(isPossible(command));
        if (command.icon)
            action->setIcon(compat::icon(
                QString::fromLatin1(":/icons/%1.png").arg(QLatin1String(command.icon))));
        if (command.keys[0])
            action->setShortcut(QKeySequence(QString::fromLatin1(command.keys[0])));
    }
    connect(menu, SIGNAL(triggered(QAction *)), SLOT(runChosen(QAction *)));
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(selectedEntry()).center())
                      : event->globalPos());
}

// The files may have gone while the menu was open.
void EdExplorerTree::runChosen(QAction *action)
{
    const Command &command = commands[action->data().toInt()];
    if (isPossible(command))
        (this->*command.run)();
}

// Whoever takes the files opens or copies them; moving them away would be a surprise.
void EdExplorerTree::startDrag(Qt::DropActions actions)
{
    QTreeView::startDrag(actions & Qt::CopyAction);
}

QModelIndex EdExplorerTree::selectedEntry() const
{
    return m_filter ? selectionModel()->selectedRows().value(0) : QModelIndex();
}

QStringList EdExplorerTree::selectedPaths() const
{
    QStringList paths;
    if (!m_filter)
        return paths;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        paths << m_filter->filePath(index);
    return paths;
}

QString EdExplorerTree::targetFolder() const
{
    const QStringList paths = selectedPaths();
    if (paths.size() != 1)
        return m_root;
    const QFileInfo info(paths.first());
    return info.isDir() ? info.absoluteFilePath() : info.absolutePath();
}

void EdExplorerTree::select(const QString &path)
{
    m_awaited = path;
    selectAwaited();
}

void EdExplorerTree::selectAwaited()
{
    const QModelIndex index =
        m_filter && !m_awaited.isEmpty() ? m_filter->indexOf(m_awaited) : QModelIndex();
    // Of one that is listed but not shown yet, the model gives the folder.
    if (!index.isValid() || m_filter->filePath(index) != m_awaited)
        return;
    // The view itself would toggle or extend, by the keys that are still held: Ctrl from Ctrl+V.
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                 QItemSelectionModel::Rows);
    scrollTo(index);
}

// A new file may vanish and come back: a listing that was on its way did not know it.
void EdExplorerTree::rowsInserted(const QModelIndex &parent, int first, int last)
{
    QTreeView::rowsInserted(parent, first, last);
    if (!m_awaited.isEmpty())
        QMetaObject::invokeMethod(this, "selectAwaited", Qt::QueuedConnection);
}

void EdExplorerTree::goToParent()
{
    const QModelIndex parent = selectedEntry().parent();
    if (parent != rootIndex())
        setCurrentIndex(parent);
}

void EdExplorerTree::makeRoot()
{
    emit rootSelected(m_filter->filePath(selectedEntry()));
}

void EdExplorerTree::chooseRoot()
{
    emit rootSelected(QString());
}
