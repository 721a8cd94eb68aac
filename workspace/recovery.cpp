// SPDX-License-Identifier: MIT
#include "workspace/recovery.h"

#include "compat/filesystem.h"
#include "workspace/edcodeview.h"
#include "workspace/journalfile.h"
#include "workspace/journalfolder.h"
#include "workspace/lineends.h"
#include "workspace/textfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("Recovery", text);
}

struct Journal
{
    QString path;
    int number = 0; // among those of its session
    JournalContents contents;
    bool isCopy = false; // outlives its recovery, being kept aside
};

QString pathOf(const EdCodeView &view)
{
    return view.fileInfo().absoluteFilePath();
}

// Closing a buffer deletes its file, so no other file may be taken for one.
bool isPlausible(const JournalHeader &header)
{
    return header.isBuffer ? EdCodeView::isBufferPath(header.path)
                           : QDir::isAbsolutePath(header.path);
}

class RecoveryRun
{
public:
    RecoveryRun(const JournalFolder &folder, DocumentHost *host) : m_folder(folder), m_host(host) {}

    Recovery run()
    {
        m_restored = m_host->codeViews();
        for (EdCodeView *view : m_restored)
            m_views[identityOf(pathOf(*view))] << view;
        for (const auto &session : m_folder.deadSessions())
            recoverSession(session->journals());
        for (const Journal &journal : m_apart)
            openApart(journal);
        return m_result;
    }

private:
    void recoverSession(const QStringList &paths)
    {
        std::vector<Journal> journals;
        for (const QString &path : paths)
            readInto(&journals, path);
        m_sessionIds.clear();
        for (const Journal &journal : journals)
            m_sessionIds << journal.contents.header.documentId;
        std::stable_sort(journals.begin(), journals.end(), isBefore);
        for (const Journal &journal : journals)
            recover(journal);
        m_laterPaths += m_sessionPaths;
        m_sessionPaths.clear();
    }

    // Buffers that share a file are told apart by their order if by nothing else. Of the texts for
    // one file the latest is the one that counts.
    static bool isBefore(const Journal &a, const Journal &b)
    {
        const auto rank = [](const Journal &journal) {
            const JournalHeader &header = journal.contents.header;
            return std::make_pair(header.bufferIndex, header.isBuffer ? 1 : -journal.number);
        };
        return rank(a) < rank(b);
    }

    void readInto(std::vector<Journal> *journals, const QString &path)
    {
        Journal journal;
        journal.path = path;
        journal.number = QFileInfo(path).baseName().toInt();
        journal.contents = readJournal(path);
        if (journal.contents.state == JournalContents::Refused) {
            m_result.problems << translated("An unsaved text cannot be read now: %1: %2.")
                                     .arg(path, journal.contents.refusal);
            return;
        }
        if (journal.contents.state != JournalContents::Intact) {
            journal.isCopy = true;
            journal.path = m_folder.keepAside(path);
            const bool isPart = journal.contents.state == JournalContents::Damaged;
            m_result.problems
                << translated(isPart ? "An unsaved text is recovered only in part: %1 is damaged."
                                     : "An unsaved text cannot be recovered: %1 is damaged.")
                       .arg(journal.path);
        }
        if (journal.contents.state != JournalContents::Unreadable)
            journals->push_back(journal);
    }

    void recover(const Journal &journal)
    {
        const JournalHeader &header = journal.contents.header;
        const QString file = identityOf(header.path);
        const bool isOwn = isPlausible(header);
        // A file is one document, however many buffers share the last name.
        const bool isLatest =
            !m_laterPaths.contains(file) && (header.isBuffer || !m_sessionPaths.contains(file));
        EdCodeView *view = isOwn && isLatest ? viewFor(header) : nullptr;
        if (isKnown(journal, view)) {
            if (!journal.isCopy)
                QFile::remove(journal.path);
            return;
        }
        m_sessionPaths << file;
        if (isOwn && isLatest)
            recoverInto(view ? view : openView(header), journal);
        else
            recoverApart(journal);
    }

    // Whether nothing would be lost with the journal: a later session has the same text for the
    // file, or the file itself has it. A buffer that is not open has no tab without it.
    bool isKnown(const Journal &journal, EdCodeView *view)
    {
        const JournalHeader &header = journal.contents.header;
        const QString &text = journal.contents.text;
        const QString file = identityOf(header.path);
        const bool mayRepeat = header.isBuffer && !m_laterPaths.contains(file);
        if (!mayRepeat && m_texts.value(file).contains(text))
            return true;
        if (!view)
            return !header.isBuffer && isInFile(header.path, text);
        const bool isSame = view->text() == text;
        if (isSame && view->mayShareFile())
            m_restored.removeAll(view); // the next one is for the next text
        return isSame;
    }

    static bool isInFile(const QString &path, const QString &text)
    {
        TextFile file;
        QString ignored;
        return readTextFile(path, &file, &ignored) &&
               linesOf(file.text).join(QLatin1String("\n")) == text;
    }

    // A file may have several names.
    static QString identityOf(const QString &path)
    {
        const QString identity = compat::fileIdentity(path);
        return identity.isEmpty() ? path : identity;
    }

    // An open one that has no text from a journal yet; null when there is none. Buffers that share
    // a file are told apart by what their journals say, or else by their order.
    EdCodeView *viewFor(const JournalHeader &header)
    {
        EdCodeView *found = nullptr;
        for (EdCodeView *view : m_views.value(identityOf(header.path))) {
            if (!m_restored.contains(view) || view->isBuffer() != header.isBuffer)
                continue;
            if (view->documentId() == header.documentId)
                return view;
            const bool isOthers = view->mayShareFile() && m_sessionIds.contains(view->documentId());
            if (!found && !isOthers)
                found = view;
        }
        return found;
    }

    EdCodeView *openView(const JournalHeader &header)
    {
        const int index = header.isBuffer ? m_host->newBufferIndex() : -1;
        auto *view = new EdCodeView(EdCodeView::AwaitsFile, EdCodeView::Text);
        if (!view->loadQuietly(QFileInfo(header.path), header.isBuffer, index).isEmpty())
            view->becomeDocument(header, index);
        m_host->addCodeView(view, labelFor(*view));
        return view;
    }

    static QString labelFor(const EdCodeView &view)
    {
        if (!view.isBuffer())
            return view.fileInfo().fileName();
        const char *labels[] = {"Text", "Python", "MEL"}; // as for new ones
        return translated(labels[view.language()]);
    }

    void recoverInto(EdCodeView *view, const Journal &journal)
    {
        m_restored.removeAll(view);
        adopt(view, journal);
        // Buffers that share a file are kept like this however they were closed.
        if (!view->mayShareFile())
            addDocument(view, false);
    }

    // Last: a new buffer takes the name of a file that is missing, unless its buffer is open.
    void recoverApart(const Journal &journal)
    {
        m_texts[identityOf(journal.contents.header.path)] << journal.contents.text;
        m_apart << journal;
    }

    void openApart(const Journal &journal)
    {
        const QString path = journal.contents.header.path;
        const QString suffix = QFileInfo(path).suffix();
        const int language = suffix == QLatin1String("mel")  ? EdCodeView::Mel
                             : suffix == QLatin1String("py") ? EdCodeView::Python
                                                             : EdCodeView::Text;
        auto *view = new EdCodeView(m_host->newBufferIndex(), language, m_host->documentParent());
        m_host->addCodeView(view, translated("%1 (recovered)").arg(QFileInfo(path).fileName()));
        adopt(view, journal);
        addDocument(view, true);
    }

    void adopt(EdCodeView *view, const Journal &journal)
    {
        view->recover(journal.contents, journal.isCopy ? QString() : journal.path);
        m_texts[identityOf(journal.contents.header.path)] << journal.contents.text;
    }

    void addDocument(EdCodeView *view, bool isApart)
    {
        RecoveredDocument document;
        document.view = view;
        document.name = m_host->nameOf(*view);
        document.isApart = isApart;
        document.isOutdated = !view->isBuffer() && view->isFileChanged();
        m_result.documents << document;
    }

    const JournalFolder &m_folder;
    DocumentHost *m_host;
    QMap<QString, QList<EdCodeView *>> m_views; // that were restored, by file
    QList<EdCodeView *> m_restored;             // of these, that have got no text yet
    QStringList m_sessionIds;                   // of the documents of the session at hand
    QStringList m_sessionPaths;                 // recovered from the session at hand
    QStringList m_laterPaths;                   // and from those that were at work later
    QMap<QString, QStringList> m_texts;         // by path
    QList<Journal> m_apart;                     // that get buffers of their own
    Recovery m_result;
};

} // namespace

Recovery recoverDocuments(const JournalFolder &folder, DocumentHost *host)
{
    return RecoveryRun(folder, host).run();
}
