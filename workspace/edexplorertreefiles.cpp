// SPDX-License-Identifier: MIT
// What the tree does with files.
#include "workspace/edexplorertree.h"

#include "compat/filesystem.h"
#include "workspace/edexplorerfilterproxymodel.h"
#include "workspace/fileoperations.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QList>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

namespace {

const int mostCounted = 10000; // files in a folder, before the question takes its time

QString translated(const char *text)
{
    return QCoreApplication::translate("EdExplorerTree", text);
}

QString contentsOf(const QString &folder)
{
    const int count = countFiles(folder, mostCounted);
    if (count == mostCounted)
        return translated("It holds %1 files or more.").arg(count);
    return count == 1 ? translated("It holds 1 file.")
                      : translated("It holds %1 files.").arg(count);
}

QString fateOf(const QStringList &paths)
{
    bool areLinks = true;
    for (const QString &path : paths)
        areLinks = areLinks && compat::isLink(path);
    if (areLinks)
        return translated("What a link leads to stays.");
    return compat::hasTrash() ? translated("You can get it back from the trash.")
                              : translated("This is for good.");
}

QString deleteQuestion(const QStringList &paths)
{
    const QString path = paths.first();
    QStringList lines;
    if (paths.size() > 1)
        lines << translated("Delete %1 files and folders?").arg(paths.size());
    else
        lines << translated("Delete '%1'?").arg(QFileInfo(path).fileName());
    if (paths.size() == 1 && QFileInfo(path).isDir() && !compat::isLink(path))
        lines << contentsOf(path);
    lines << fateOf(paths);
    return lines.join(QLatin1String("\n"));
}

bool confirms(QWidget *parent, const QString &question)
{
    return QMessageBox::question(parent, translated("Delete"), question,
                                 QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::No) == QMessageBox::Yes;
}

// A link is only deleted: it holds nothing that could be missed, and a desktop may follow it.
bool goesToTrash(const QString &path)
{
    return compat::hasTrash() && !compat::isLink(path);
}

class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;
};

// Returns the last copy; a failure ends it, with the path it happened to.
QString copyAll(const QList<QUrl> &urls, const QString &folder, QString *failed, QString *reason)
{
    const WaitCursor wait;
    QString copy;
    for (const QUrl &url : urls) {
        const QString path = url.toLocalFile();
        const QString newPath = copyInto(folder, path, reason);
        if (newPath.isEmpty()) {
            *failed = path;
            return copy;
        }
        copy = newPath;
    }
    return copy;
}

} // namespace

void EdExplorerTree::open()
{
    const QModelIndex index = selectedEntry();
    const QString path = openablePath(index);
    if (path.isEmpty())
        setExpanded(index, !isExpanded(index));
    else
        emit openSelected(path);
}

void EdExplorerTree::newFile()
{
    bool isAccepted = false;
    const QString name = QInputDialog::getText(this, tr("New File"), tr("Name of the file:"),
                                               QLineEdit::Normal, QString(), &isAccepted);
    if (!isAccepted)
        return;
    QString reason;
    const QString path = createFile(targetFolder(), name, &reason);
    if (path.isEmpty())
        return complain(tr("Cannot create %1:\n%2."), name, reason);
    select(path);
    emit fileOpened(path);
}

void EdExplorerTree::newFolder()
{
    bool isAccepted = false;
    const QString name = QInputDialog::getText(this, tr("New Folder"), tr("Name of the folder:"),
                                               QLineEdit::Normal, QString(), &isAccepted);
    if (!isAccepted)
        return;
    QString reason;
    const QString path = createFolder(targetFolder(), name, &reason);
    if (path.isEmpty())
        return complain(tr("Cannot create %1:\n%2."), name, reason);
    select(path);
}

// In the form that file managers exchange; some want to hear besides that it is no move.
void EdExplorerTree::copy()
{
    QList<QUrl> urls;
    QByteArray told = "copy";
    for (const QString &path : selectedPaths()) {
        urls << QUrl::fromLocalFile(path);
        told += '\n' + urls.last().toEncoded();
    }
    QMimeData *files = new QMimeData;
    files->setUrls(urls);
    files->setData(QLatin1String("x-special/gnome-copied-files"), told);
    QApplication::clipboard()->setMimeData(files);
}

void EdExplorerTree::copyPath()
{
    QStringList paths;
    for (const QString &path : selectedPaths())
        paths << QDir::toNativeSeparators(path);
    QApplication::clipboard()->setText(paths.join(QLatin1String("\n")));
}

// What other computers have is left out.
QList<QUrl> EdExplorerTree::clipboardFiles()
{
    QList<QUrl> files;
    const QMimeData *content = QApplication::clipboard()->mimeData();
    if (!content) // nothing has been put there yet
        return files;
    for (const QUrl &url : content->urls()) {
        if (!url.toLocalFile().isEmpty())
            files << url;
    }
    return files;
}

void EdExplorerTree::paste()
{
    QString failed;
    QString reason;
    const QString copy = copyAll(clipboardFiles(), targetFolder(), &failed, &reason);
    if (!copy.isEmpty())
        select(copy);
    if (!failed.isEmpty())
        complain(tr("Cannot copy %1:\n%2."), failed, reason);
}

void EdExplorerTree::rename()
{
    edit(selectedEntry());
}

void EdExplorerTree::renameFile(const QString &path, const QString &name)
{
    QString reason;
    const QString newPath = renameTo(name, path, &reason);
    if (newPath.isEmpty())
        return complain(tr("Cannot rename %1:\n%2."), path, reason);
    select(newPath);
    emit fileRenamed(path, newPath);
}

void EdExplorerTree::remove()
{
    const QStringList paths = outermostPaths(selectedPaths());
    if (!confirms(this, deleteQuestion(paths)))
        return;
    for (const QString &path : paths) {
        if (!removeOne(path))
            return;
    }
}

bool EdExplorerTree::removeOne(const QString &path)
{
    QString reason;
    bool isRemoved = goesToTrash(path) && compat::moveToTrash(path, &reason);
    const QString question =
        tr("Cannot move %1 to the trash:\n%2.\nDelete it for good?").arg(path, reason);
    if (!isRemoved && goesToTrash(path) && !confirms(this, question))
        return false;
    isRemoved = isRemoved || compat::removeTree(path, &reason);
    if (isRemoved)
        emit fileDeleted(path);
    else
        complain(tr("Cannot delete %1:\n%2."), path, reason);
    return isRemoved;
}

void EdExplorerTree::showInFolder()
{
    const QStringList paths = selectedPaths();
    const QString folder = paths.isEmpty() ? m_root : QFileInfo(paths.first()).absolutePath();
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        complain(tr("Cannot show %1:\n%2."), folder, tr("The desktop has no program for folders"));
}

void EdExplorerTree::complain(const QString &text, const QString &path, const QString &reason)
{
    QMessageBox::warning(this, tr("Error"), text.arg(path, reason));
}
