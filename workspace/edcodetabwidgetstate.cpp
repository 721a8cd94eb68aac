// SPDX-License-Identifier: MIT
// The tabs of a pane as they are kept from one run to the next.
#include "workspace/edcodetabwidget.h"

#include "workspace/edcodetabbar.h"
#include "workspace/edcodeview.h"
#include "workspace/tabentry.h"

#include <algorithm>
#include <optional>

void EdCodeTabWidget::writeState(QStringList &out, int viewId) const
{
    for (int tab = 0; tab < count(); ++tab)
        out << TabEntry::of(*codeViewAt(tab), viewId, tabText(tab)).text();
}

void EdCodeTabWidget::restoreTab(const QString &entry, int bufferIndex)
{
    const std::optional<TabEntry> parsed = TabEntry::parsePlainly(entry);
    if (!parsed)
        return;
    const QFileInfo info(parsed->path);
    const int tab = parsed->isBuffer ? openBuffer(info, bufferIndex, parsed->label, -1)
                                     : openFile(info, -1, -1);
    if (tab >= 0)
        parsed->place(codeViewAt(tab));
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

QString EdCodeTabWidget::restoreTabQuietly(const TabEntry &entry, int bufferIndex)
{
    const QFileInfo info(entry.path);
    EdCodeView *view = newView();
    const QString reason = view->loadQuietly(info, entry.isBuffer, bufferIndex);
    if (!reason.isEmpty() && !(entry.isBuffer && view->becomeSharing(info, bufferIndex))) {
        delete view;
        return reason;
    }
    addTab(-1, view, entry.isBuffer ? entry.label : info.fileName(), false);
    if (entry.isBuffer)
        emit bufferCreated(bufferIndex, entry.label, info);
    else
        emit fileOpened(info.absoluteFilePath());
    entry.place(view); // scrolling needs the size of a view that is seen
    return QString();
}
