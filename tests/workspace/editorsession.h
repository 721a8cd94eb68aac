// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/edcodeview.h"
#include "workspace/journalfolder.h"
#include "workspace/recovery.h"
#include "workspace/tabentry.h"

#include <QFileInfo>

#include <memory>

// A session of the editor without its window.
class EditorSession : public DocumentHost
{
public:
    explicit EditorSession(const QString &directory)
        : m_folder(std::make_shared<JournalFolder>(directory))
    {
        EdCodeView::useJournalFolder(m_folder);
    }
    ~EditorSession() override { qDeleteAll(m_views); }

    QList<EdCodeView *> codeViews() const override { return m_views; }
    int newBufferIndex() override { return m_nextIndex++; }
    QString nameOf(const EdCodeView &view) const override
    {
        return m_labels.at(int(m_views.indexOf(const_cast<EdCodeView *>(&view))));
    }
    void addCodeView(EdCodeView *view, const QString &label) override
    {
        m_views << view;
        m_labels << label;
    }

    EdCodeView *open(const QString &path, bool isBuffer = false)
    {
        EdCodeView *view = new EdCodeView(EdCodeView::AwaitsFile, EdCodeView::Text);
        const int index = isBuffer ? newBufferIndex() : -1;
        view->load(QFileInfo(path), isBuffer, index);
        addCodeView(view, QFileInfo(path).fileName());
        return view;
    }
    EdCodeView *newBuffer(const QString &label)
    {
        addCodeView(new EdCodeView(newBufferIndex(), EdCodeView::Mel), label);
        return m_views.last();
    }
    void close(EdCodeView *view)
    {
        view->removeBufferFile();
        view->discardJournal();
        m_labels.removeAt(int(m_views.indexOf(view)));
        m_views.removeAll(view);
        delete view;
    }
    // To the end of the tabs.
    void moveToEnd(EdCodeView *view)
    {
        const int index = int(m_views.indexOf(view));
        m_labels << m_labels.takeAt(index);
        m_views << m_views.takeAt(index);
    }
    // What the last session had.
    void restoreTabs()
    {
        const WorkspaceState state = m_folder->tabsToRestore(WorkspaceState(), QDateTime());
        for (int i = 0; i < state.openTabs.size(); ++i) {
            const std::optional<TabEntry> entry = TabEntry::parse(state.openTabs.at(i));
            if (!entry || !entry->hasFile())
                continue;
            EdCodeView *view = open(entry->path, entry->isBuffer);
            if (!state.documentIds.value(i).isEmpty())
                view->setDocumentId(state.documentIds.at(i));
        }
    }
    bool storeTabs()
    {
        WorkspaceState state;
        for (int i = 0; i < m_views.size(); ++i)
            state.openTabs << TabEntry::of(*m_views.at(i), 0, m_labels.at(i)).text();
        for (const EdCodeView *view : m_views)
            state.documentIds << view->documentId();
        return m_folder->storeTabs(state);
    }
    Recovery recover()
    {
        const Recovery recovery = recoverDocuments(*m_folder, this);
        storeTabs();
        m_folder->forgetDeadSessions();
        return recovery;
    }

private:
    std::shared_ptr<JournalFolder> m_folder; // first to come and last to go
    QList<EdCodeView *> m_views;
    QStringList m_labels;
    int m_nextIndex = 0;
};
