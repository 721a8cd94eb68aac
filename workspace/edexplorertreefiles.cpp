// SPDX-License-Identifier: MIT
// What the tree does with files.
#include "workspace/edexplorertree.h"

#include "compat/filesystem.h"
#include "workspace/choicebox.h"
#include "workspace/edexplorerfilterproxymodel.h"
#include "workspace/fileoperations.h"
#include "workspace/fileprogress.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QList>
#include <QMimeData>
#include <QPointer>
#include <QUrl>

namespace {

const int mostCounted = 10000; // files and folders, before the question takes its time

QString translated(const char *text)
{
    return QCoreApplication::translate("EdExplorerTree", text);
}

QString contentsOf(const QString &folder)
{
    const FileCount count = countFiles(folder, mostCounted);
    if (!count.isComplete)
        return translated("It holds %1 files or more.").arg(count.files);
    return count.files == 1 ? translated("It holds 1 file.")
                            : translated("It holds %1 files.").arg(count.files);
}

QString fateOf(const QStringList &paths)
{
    int links = 0;
    for (const QString &path : paths)
        links += compat::isLink(path) ? 1 : 0;
    if (links == paths.size())
        return translated("What a link leads to stays.");
    if (!compat::hasTrash())
        return links > 0 ? translated("This is for good, but what a link leads to stays.")
                         : translated("This is for good.");
    return links > 0 ? translated("You can get all but the links back from the trash.")
                     : translated("You can get it back from the trash.");
}

QString deleteQuestion(const QStringList &paths)
{
    const QString &path = paths.first();
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
    return askYesNo(parent, translated("Delete"), question, QMessageBox::No, QMessageBox::No);
}

// A link is only deleted: it holds nothing that could be missed, and a desktop may follow it.
bool goesToTrash(const QString &path)
{
    return compat::hasTrash() && !compat::isLink(path);
}

// After a failure with the first ones.
QString leftOut(int count)
{
    if (count == 0)
        return QString();
    return count == 1 ? translated("\n1 more was left out.")
                      : translated("\n%1 more were left out.").arg(count);
}

// False, without a reason if the user wants it so, when it is still there.
bool removeOne(QWidget *parent, const QString &path, FileProgress *progress, QString *reason)
{
    if (!progress->goesOn())
        return false;
    if (goesToTrash(path)) {
        if (compat::moveToTrash(path, reason))
            return true;
        progress->stop();
        const QString question =
            translated("Cannot move %1 to the trash:\n%2.\nDelete it for good?").arg(path, *reason);
        reason->clear();
        if (!confirms(parent, question))
            return false;
    }
    return compat::removeTree(path, reason, [progress] { return progress->goesOn(); });
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
    const QString path = make(tr("New File"), tr("Name of the file:"), &createFile);
    if (!path.isEmpty())
        emit fileOpened(path);
}

void EdExplorerTree::newFolder()
{
    make(tr("New Folder"), tr("Name of the folder:"), &createFolder);
}

// Where it goes is settled before the dialog: files change meanwhile, and the selection with them.
QString EdExplorerTree::make(const QString &title, const QString &label, Maker maker)
{
    const QPointer<EdExplorerTree> self(this);
    const QString folder = targetFolder();
    const std::optional<QString> name = askText(this, title, label);
    if (!name || !self)
        return QString();
    QString reason;
    const QString path = maker(folder, *name, &reason);
    if (path.isEmpty())
        complain(tr("Cannot create %1:\n%2.").arg(*name, reason));
    else
        select(path);
    return path;
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
    const QPointer<EdExplorerTree> self(this);
    const QList<QUrl> files = clipboardFiles();
    const QString folder = targetFolder();
    FileProgress progress(tr("Copying..."), this);
    QString lastCopy;
    QString complaint;
    for (int i = 0; i < files.size() && complaint.isNull(); ++i) {
        const QString path = files.at(i).toLocalFile();
        QString reason;
        const QString copy =
            copyInto(folder, path, &reason, [&progress] { return progress.goesOn(); });
        if (copy.isEmpty() && reason.isEmpty())
            break; // the user has ended it
        if (copy.isEmpty())
            complaint =
                tr("Cannot copy %1:\n%2.").arg(path, reason) + leftOut(int(files.size()) - i - 1);
        else
            lastCopy = copy;
    }
    progress.stop();
    if (!self)
        return;
    if (!lastCopy.isEmpty())
        select(lastCopy);
    if (!complaint.isEmpty())
        complain(complaint);
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
        return complain(tr("Cannot rename %1:\n%2.").arg(path, reason));
    select(newPath);
    emit fileRenamed(path, newPath);
}

// What has gone is told at the end, when nothing is asked about any more.
void EdExplorerTree::remove()
{
    const QPointer<EdExplorerTree> self(this);
    const QStringList paths = outermostPaths(selectedPaths());
    if (paths.isEmpty() || !confirms(this, deleteQuestion(paths)) || !self)
        return;
    FileProgress progress(tr("Deleting..."), this);
    QString reason;
    int removed = 0;
    while (self && removed < paths.size() && removeOne(this, paths.at(removed), &progress, &reason))
        ++removed;
    progress.stop();
    for (int i = 0; self && i < removed; ++i)
        emit fileDeleted(paths.at(i));
    if (self && !reason.isEmpty())
        complain(tr("Cannot delete %1:\n%2.").arg(paths.at(removed), reason) +
                 leftOut(int(paths.size()) - removed - 1));
}

void EdExplorerTree::showInFolder()
{
    const QStringList paths = selectedPaths();
    const QString folder = paths.isEmpty() ? m_root : QFileInfo(paths.first()).absolutePath();
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        complain(
            tr("Cannot show %1:\n%2.").arg(folder, tr("The desktop has no program for folders")));
}

void EdExplorerTree::complain(const QString &text)
{
    showWarning(this, tr("Error"), text);
}
