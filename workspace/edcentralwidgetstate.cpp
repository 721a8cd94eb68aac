// SPDX-License-Identifier: MIT
// What survives a restart: the text of buffers, and the list of what is open.
#include "workspace/edcentralwidget.h"

#include "workspace/edcodeview.h"
#include "workspace/tabentry.h"

#include <algorithm>

QString EdCentralWidget::saveBuffers()
{
    if (!m_view || !m_view->isBuffer())
        return QString();
    if (!QFileInfo(m_view->fileInfo().absoluteFilePath()).exists()) // somebody tidied up
        m_view->forceModified();
    const QString reason = m_view->saveBufferQuietly();
    return reason.isEmpty() ? reason : bufferProblem(reason);
}

QString EdCentralWidget::bufferProblem(const QString &reason) const
{
    return tr("The buffer %1 is not saved: %2.").arg(m_bufferLabel, reason);
}

// Files are the user's own to save. A box would come in the middle of typing.
void EdCentralWidget::autosave()
{
    if (!m_view || !m_view->isBuffer() || !m_view->isModified())
        return;
    const QString reason = m_view->saveBufferQuietly();
    if (reason.isEmpty())
        emit autosaved();
    else if (m_saysAutosaveFails)
        emit autosaveFailed(bufferProblem(reason));
    m_saysAutosaveFails = m_saysAutosaveFails && reason.isEmpty();
}

WorkspaceState EdCentralWidget::state() const
{
    WorkspaceState state;
    if (m_view) {
        state.openTabs << TabEntry::of(*m_view, 0, m_bufferLabel).text();
        state.indexA = 0;
    }
    for (const TabEntry &entry : m_waitingEntries)
        state.openTabs << entry.text();
    return state;
}

QStringList EdCentralWidget::restore(const WorkspaceState &state)
{
    const int current = keepEntries(state);
    QStringList problems;
    if (current >= 0 && m_waitingEntries.at(current).hasFile()) {
        m_waitingEntries.move(current, 0);
        const TabEntry entry = m_waitingEntries.first();
        const QString reason = openEntry(entry);
        if (!reason.isEmpty())
            problems << tr("%1 cannot be opened again: %2.").arg(entry.path, reason);
    }
    for (int i = int(m_waitingEntries.size()) - 1; i >= 0; --i) {
        const TabEntry entry = m_waitingEntries.at(i);
        if (entry.hasFile())
            continue;
        problems << tr("%1 cannot be opened again.").arg(entry.path);
        // A file may come back, from where it is kept; a buffer is nowhere else.
        if (entry.isBuffer && !QFileInfo(entry.path).exists())
            m_waitingEntries.removeAt(i);
    }
    return problems;
}

// Returns the place of the entry that was current, or -1. An index of -1 for pane 0 is how lists of
// a single pane were written: all are its documents.
int EdCentralWidget::keepEntries(const WorkspaceState &state)
{
    const bool hasPanes = state.indexA != -1;
    const int pane = hasPanes && state.activeView == 1 ? 1 : 0;
    QList<int> places; // of the active pane's
    for (const QString &text : state.openTabs) {
        const std::optional<TabEntry> entry = TabEntry::parse(text);
        if (!entry)
            continue;
        if (!hasPanes || entry->pane == pane)
            places << int(m_waitingEntries.size());
        m_waitingEntries << *entry;
    }
    const int current = hasPanes && pane == 0 ? state.indexA : state.indexB;
    return places.isEmpty() ? -1 : places.at(std::clamp(current, 0, int(places.size()) - 1));
}

// Returns why it failed.
QString EdCentralWidget::openEntry(const TabEntry &entry)
{
    const int index = m_nextBufferIndex++;
    EdCodeView *view = new EdCodeView(EdCodeView::AwaitsFile, EdCodeView::Text, this);
    const QString reason = entry.open(view, index);
    if (!reason.isEmpty() || !mayBeReplaced()) {
        delete view;
        return reason;
    }
    m_bufferLabel = entry.label;
    showView(view);
    if (view->isBuffer())
        emit bufferCreated(index, entry.label, view->fileInfo());
    else
        emit fileOpened(view->fileInfo().absoluteFilePath());
    return QString();
}

// What becomes of the open document from here on, the user decides.
void EdCentralWidget::forgetEntry()
{
    for (int i = int(m_waitingEntries.size()) - 1; i >= 0; --i) {
        if (isShown(QFileInfo(m_waitingEntries.at(i).path)))
            m_waitingEntries.removeAt(i);
    }
}
