// SPDX-License-Identifier: MIT
// What survives a restart: the text of buffers, and the list of what is open.
#include "workspace/edcentralwidget.h"

#include "compat/filesystem.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/flagscope.h"
#include "workspace/journalfile.h"
#include "workspace/recoverybar.h"
#include "workspace/tabentry.h"

#include <QBoxLayout>
#include <QDir>
#include <QSet>
#include <QSplitter>

namespace {

// The folder is not there, as of a drive that is not mounted, or the file cannot be read now. A
// file that was deleted is given up.
bool mayComeBack(const TabEntry &entry)
{
    const QFileInfo file(entry.path);
    return !entry.isBuffer && (file.exists() || !file.dir().exists());
}

QString pathWithoutLinks(const EdCodeView &view)
{
    const QFileInfo file = view.fileInfo();
    return file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
}

} // namespace

// By whatever name, and without asking the disk about each of them for each other.
class EdCentralWidget::OpenFiles
{
public:
    explicit OpenFiles(const QList<EdCodeView *> &views)
    {
        for (const EdCodeView *view : views)
            add(view->fileInfo().absoluteFilePath());
    }

    // False when it is there already.
    bool add(const QString &path)
    {
        QString identity = compat::fileIdentity(path);
        if (identity.isEmpty())
            identity = QFileInfo(path).absoluteFilePath();
        const bool isNew = !m_identities.contains(identity);
        m_identities.insert(identity);
        return isNew;
    }

private:
    QSet<QString> m_identities;
};

void EdCentralWidget::flushJournals()
{
    for (EdCodeView *view : codeViews())
        view->flushJournal();
}

QStringList EdCentralWidget::saveBuffersQuietly()
{
    QStringList problems;
    for (EdCodeView *view : codeViews()) {
        if (!view->isBuffer())
            continue;
        if (!QFileInfo(view->fileInfo().absoluteFilePath()).exists()) // somebody tidied up
            view->forceModified();
        const QString reason = view->saveBufferQuietly();
        const Place place = placeOf(view);
        if (!reason.isEmpty())
            problems << tr("The buffer %1 is not saved: %2.")
                            .arg(place.pane->tabText(place.tab), reason);
    }
    return problems;
}

WorkspaceState EdCentralWidget::state() const
{
    WorkspaceState state;
    for (EdCodeTabWidget *pane : m_panes)
        pane->writeState(state.openTabs, pane->id());
    for (const EdCodeView *view : codeViews())
        state.documentIds << view->documentId();
    state.openTabs += m_waitingEntries;
    state.activeView = m_activeView;
    state.indexA = m_panes.at(0)->currentIndex();
    state.indexB = m_panes.at(1)->currentIndex();
    return state;
}

// An index of -1 for the first pane is how lists of a single pane were written, and those of which
// only the second one had tabs: everything is the first pane's.
QStringList EdCentralWidget::restore(const WorkspaceState &stored)
{
    WorkspaceState state = stored;
    const bool hasPanes = state.indexA != -1;
    if (!hasPanes) {
        state.indexA = state.indexB;
        state.activeView = 0;
    }
    QStringList problems;
    {
        const FlagScope ignoring(&m_ignoresTabs); // documents are parsed when they are shown
        for (EdCodeTabWidget *pane : m_panes)
            pane->beginRestoring();
        OpenFiles files(codeViews());
        QList<EdCodeView *> restored[PaneCount]; // for each entry, null where there is none
        for (int i = 0; i < state.openTabs.size(); ++i) {
            const QString id = state.documentIds.value(i);
            problems << restoreEntry(state.openTabs.at(i), id, hasPanes, &files, restored);
        }
        showStored(m_panes.at(0), restored[0], state.indexA);
        showStored(m_panes.at(1), restored[1], state.indexB);
    }
    problems.removeAll(QString());
    const int wanted = state.activeView == 1 ? 1 : 0;
    const bool isEmpty = m_panes.at(wanted)->count() == 0;
    makeActive(isEmpty && m_panes.at(1 - wanted)->count() > 0 ? 1 - wanted : wanted);
    showUnparsed();
    if (currentCodeView()) // the window may not be shown yet
        active()->setCodeEditFocus();
    return problems;
}

// The one that was current is known by its place in the list, of which not all may be open.
void EdCentralWidget::showStored(EdCodeTabWidget *pane, const QList<EdCodeView *> &restored,
                                 int index)
{
    const int tab = pane->indexOf(restored.value(index));
    pane->endRestoring(tab != -1 ? tab : index);
}

// Returns what there is to say, or an empty text.
QString EdCentralWidget::restoreEntry(const QString &text, const QString &documentId, bool hasPanes,
                                      OpenFiles *files, QList<EdCodeView *> *restored)
{
    const std::optional<TabEntry> entry = TabEntry::parse(text);
    if (!entry)
        return QString();
    const int id = hasPanes && entry->pane == 1 ? 1 : 0;
    EdCodeTabWidget *pane = m_panes.at(id);
    // Buffers may share a file: there are names for so many only.
    const bool isOpen = !files->add(entry->path) && !entry->isBuffer;
    const int count = pane->count();
    const QString reason =
        isOpen ? QString() : pane->restoreTabQuietly(*entry, m_nextBufferIndex++);
    EdCodeView *view = pane->count() > count ? pane->codeViewAt(count) : nullptr;
    restored[id] << view;
    if (view && !documentId.isEmpty())
        view->setDocumentId(documentId);
    if (reason.isEmpty())
        return reason;
    if (mayComeBack(*entry))
        m_waitingEntries << text;
    return tr("%1 cannot be opened again: %2.").arg(entry->path, reason);
}

QByteArray EdCentralWidget::splitterState() const
{
    return m_splitter->saveState();
}

void EdCentralWidget::restoreSplitter(const QByteArray &state)
{
    m_splitter->restoreState(state);
}

QStringList EdCentralWidget::recover(const JournalFolder &journals)
{
    EdCodeView *current = currentCodeView();
    Recovery recovery;
    {
        const FlagScope ignoring(&m_ignoresTabs);
        recovery = recoverDocuments(journals, this);
        if (current)
            showPlace(placeOf(current));
    }
    showUnparsed();
    for (const RecoveredDocument &document : recovery.documents) {
        if (document.isOutdated)
            externalFileChange(document.view->fileInfo().absoluteFilePath());
    }
    if (!recovery.documents.isEmpty())
        showRecovered(recovery.documents);
    return recovery.problems;
}

void EdCentralWidget::showRecovered(const QList<RecoveredDocument> &documents)
{
    if (!m_recoveryBar) {
        m_recoveryBar = new RecoveryBar(this);
        connect(m_recoveryBar, SIGNAL(documentChosen(EdCodeView *)),
                SLOT(showDocument(EdCodeView *)));
        connect(m_recoveryBar, SIGNAL(closeWanted(EdCodeView *)),
                SLOT(closeDocument(EdCodeView *)));
        connect(m_recoveryBar, SIGNAL(answered()), SLOT(focusCurrent()));
        for (EdCodeTabWidget *pane : m_panes)
            connect(pane, SIGNAL(codeViewRetired(EdCodeView *)), m_recoveryBar,
                    SLOT(forget(EdCodeView *)));
        qobject_cast<QBoxLayout *>(layout())->insertWidget(0, m_recoveryBar);
    }
    m_recoveryBar->add(documents);
}

void EdCentralWidget::noteKeptChanges(EdCodeView *view)
{
    if (!view->keptJournal().isEmpty())
        m_keptJournals.insert(pathWithoutLinks(*view), view->keptJournal());
}

// Or there would be two unsaved texts for one file at the next start.
void EdCentralWidget::giveBackChanges(EdCodeView *view)
{
    const QString journal = m_keptJournals.take(pathWithoutLinks(*view));
    const JournalContents contents = journal.isEmpty() ? JournalContents() : readJournal(journal);
    if (contents.state != JournalContents::Intact)
        return; // what is wrong with it, the next start tells
    view->recover(contents, journal);
    RecoveredDocument document;
    document.view = view;
    document.name = nameOf(*view);
    document.isOutdated = view->isFileChanged();
    if (document.isOutdated)
        externalFileChange(view->fileInfo().absoluteFilePath());
    showRecovered(QList<RecoveredDocument>() << document);
}

QString EdCentralWidget::nameOf(const EdCodeView &view) const
{
    if (!view.isBuffer())
        return view.fileInfo().fileName();
    const Place place = placeOf(&view);
    return place.pane->tabText(place.tab);
}

void EdCentralWidget::addCodeView(EdCodeView *view, const QString &label)
{
    active()->insertCodeView(-1, view, label);
    if (view->isBuffer())
        onBufferCreated(view->bufferIndex(), label, view->fileInfo());
    else
        onFileOpened(view->fileInfo().absoluteFilePath());
}

void EdCentralWidget::showDocument(EdCodeView *view)
{
    if (const Place place = placeOf(view))
        showPlace(place);
}

void EdCentralWidget::closeDocument(EdCodeView *view)
{
    if (const Place place = placeOf(view))
        place.pane->forceCloseTab(place.tab);
}

// The keyboard would be left to a button that is gone.
void EdCentralWidget::focusCurrent()
{
    if (currentCodeView())
        active()->setCodeEditFocus();
}

// What becomes of an open document from here on, the user decides.
void EdCentralWidget::forgetEntry(const QString &path)
{
    for (const QString &text : QStringList(m_waitingEntries)) {
        const std::optional<TabEntry> entry = TabEntry::parse(text);
        if (entry->path == path)
            m_waitingEntries.removeAll(text);
    }
}
