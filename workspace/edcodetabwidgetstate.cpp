// SPDX-License-Identifier: MIT
// The tabs of a pane as they are kept from one run to the next.
#include "workspace/edcodetabwidget.h"

#include "workspace/edcodetabbar.h"
#include "workspace/edcodeview.h"
#include "workspace/tabentry.h"

#include <QMessageBox>

#include <algorithm>
#include <optional>

void EdCodeTabWidget::writeState(QStringList &out, int viewId) const
{
    for (int tab = 0; tab < count(); ++tab)
        out << TabEntry::of(*codeViewAt(tab), viewId, tabText(tab)).text();
}

void EdCodeTabWidget::restoreTab(const QString &entry, int bufferIndex)
{
    const QString reason = restoreTabQuietly(entry, bufferIndex);
    setVisible(count() > 0);
    if (reason.isEmpty())
        return;
    const QString path = TabEntry::parse(entry)->path; // only whole ones have a reason to fail
    QMessageBox::warning(this, tr("File Read Error"),
                         tr("Cannot read file %1:\n%2.").arg(path, reason));
}

void EdCodeTabWidget::beginRestoring()
{
    m_tabBar->beginFilling();
}

void EdCodeTabWidget::endRestoring(int tabIndex)
{
    m_tabBar->endFilling();
    if (count() == 0)
        return;
    setCurrentTab(std::clamp(tabIndex, 0, count() - 1));
    show(); // not before, so that no other tab is looked at
}

QString EdCodeTabWidget::restoreTabQuietly(const QString &entry, int bufferIndex)
{
    const std::optional<TabEntry> tab = TabEntry::parse(entry);
    if (!tab)
        return QString();
    const QFileInfo info(tab->path);
    EdCodeView *view = newView();
    const QString reason = view->loadQuietly(info, tab->isBuffer, bufferIndex);
    if (!reason.isEmpty() && !(tab->isBuffer && view->becomeSharing(info, bufferIndex))) {
        delete view;
        return reason;
    }
    addTab(-1, view, tab->isBuffer ? tab->label : info.fileName(), false);
    if (tab->isBuffer)
        emit bufferCreated(bufferIndex, tab->label, info);
    else
        emit fileOpened(info.absoluteFilePath());
    tab->place(view); // scrolling needs the size of a view that is seen
    return QString();
}
