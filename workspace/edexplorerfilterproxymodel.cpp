// SPDX-License-Identifier: MIT
#include "workspace/edexplorerfilterproxymodel.h"

#include "compat/icon.h"
#include "resources/resources.h"

#include <QFileSystemModel>

namespace {

bool isCompiled(const QString &name)
{
    return name.endsWith(QLatin1String(".pyc")) || name.endsWith(QLatin1String(".pyo")) ||
           name == QLatin1String("__pycache__");
}

bool hasSuffix(const QString &name, const char *suffix)
{
    return name.endsWith(QLatin1String(suffix), Qt::CaseInsensitive);
}

bool isDigit(const QString &text, int position)
{
    return position < text.size() && text.at(position).isDigit();
}

// The end of the zeros at a position, but not that of a number's last digit.
int skipZeros(const QString &text, int position)
{
    while (text.at(position) == QLatin1Char('0') && isDigit(text, position + 1))
        ++position;
    return position;
}

int digitsEnd(const QString &text, int position)
{
    while (isDigit(text, position))
        ++position;
    return position;
}

// Compares the numbers at both positions, of any length, and moves the positions behind them.
int compareNumbers(const QString &left, int *leftAt, const QString &right, int *rightAt)
{
    const int leftStart = skipZeros(left, *leftAt);
    const int rightStart = skipZeros(right, *rightAt);
    *leftAt = digitsEnd(left, leftStart);
    *rightAt = digitsEnd(right, rightStart);
    const int longer = (*leftAt - leftStart) - (*rightAt - rightStart);
    for (int i = 0; longer == 0 && leftStart + i < *leftAt; ++i) {
        const int difference =
            left.at(leftStart + i).digitValue() - right.at(rightStart + i).digitValue();
        if (difference != 0)
            return difference;
    }
    return longer;
}

int compareNaturally(const QString &left, const QString &right)
{
    int leftAt = 0;
    int rightAt = 0;
    while (leftAt < left.size() && rightAt < right.size()) {
        int difference = 0;
        if (isDigit(left, leftAt) && isDigit(right, rightAt))
            difference = compareNumbers(left, &leftAt, right, &rightAt);
        else
            difference = int(left.at(leftAt++).toCaseFolded().unicode()) -
                         int(right.at(rightAt++).toCaseFolded().unicode());
        if (difference != 0)
            return difference;
    }
    return int(left.size() - leftAt) - int(right.size() - rightAt);
}

} // namespace

bool naturallyLess(const QString &left, const QString &right)
{
    const int difference = compareNaturally(left, right);
    return difference != 0 ? difference < 0 : left < right;
}

EdExplorerFilterProxyModel::EdExplorerFilterProxyModel(QFileSystemModel *files, QObject *parent)
    : QSortFilterProxyModel(parent), m_files(files)
{
    initResources();
    m_melIcon = compat::icon(QLatin1String(":/icons/fileMel.png"));
    m_pythonIcon = compat::icon(QLatin1String(":/icons/filePython.png"));
    setSourceModel(files);
    setDynamicSortFilter(true);
    sort(0);
}

QModelIndex EdExplorerFilterProxyModel::setRoot(const QString &path)
{
    const QModelIndex root = m_files->setRootPath(path);
    if (m_root != root) {
        m_root = root;
        invalidateFilter();
    }
    return mapFromSource(root);
}

void EdExplorerFilterProxyModel::setHidesCompiledFiles(bool hides)
{
    if (m_hidesCompiledFiles == hides)
        return;
    m_hidesCompiledFiles = hides;
    invalidateFilter();
}

QString EdExplorerFilterProxyModel::filePath(const QModelIndex &index) const
{
    return m_files->filePath(mapToSource(index));
}

bool EdExplorerFilterProxyModel::isFolder(const QModelIndex &index) const
{
    return m_files->isDir(mapToSource(index));
}

QModelIndex EdExplorerFilterProxyModel::indexOf(const QString &path) const
{
    return mapFromSource(m_files->index(path));
}

QVariant EdExplorerFilterProxyModel::data(const QModelIndex &index, int role) const
{
    if (role == Qt::DecorationRole && index.column() == 0 && !isFolder(index)) {
        const QString name = m_files->fileName(mapToSource(index));
        if (hasSuffix(name, ".mel"))
            return m_melIcon;
        if (hasSuffix(name, ".py"))
            return m_pythonIcon;
    }
    return QSortFilterProxyModel::data(index, role);
}

Qt::ItemFlags EdExplorerFilterProxyModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QSortFilterProxyModel::flags(index);
    return index.isValid() && index.column() == 0 ? flags | Qt::ItemIsEditable : flags;
}

bool EdExplorerFilterProxyModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role == Qt::EditRole && value.toString() != data(index, Qt::EditRole).toString())
        emit nameEntered(filePath(index), value.toString());
    return false;
}

bool EdExplorerFilterProxyModel::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    if (!m_hidesCompiledFiles || !isCompiled(m_files->fileName(m_files->index(row, 0, parent))))
        return true;
    // The root itself may well be, or lie in, a folder of such a name.
    for (QModelIndex folder = parent; folder.isValid(); folder = folder.parent()) {
        if (m_root == folder)
            return false;
    }
    return true;
}

bool EdExplorerFilterProxyModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const bool isLeftFolder = m_files->isDir(left);
    if (isLeftFolder != m_files->isDir(right))
        return isLeftFolder;
    return naturallyLess(m_files->fileName(left), m_files->fileName(right));
}
