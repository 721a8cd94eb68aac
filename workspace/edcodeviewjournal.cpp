// SPDX-License-Identifier: MIT
// The view's part that keeps its unsaved text against the end of the program.
#include "workspace/edcodeview.h"

#include "compat/filesystem.h"
#include "editor/edcodeedit.h"
#include "workspace/journalfolder.h"
#include "workspace/linechange.h"
#include "workspace/textjournal.h"

#include <vector>

namespace {

const Fingerprint noFingerprint = {-1, 0}; // that of no file

std::vector<std::weak_ptr<JournalFolder>> &knownJournalFolders()
{
    static std::vector<std::weak_ptr<JournalFolder>> folders;
    return folders;
}

} // namespace

std::shared_ptr<JournalFolder> EdCodeView::journalFolder()
{
    auto &folders = knownJournalFolders();
    while (!folders.empty() && folders.back().expired())
        folders.pop_back();
    return folders.empty() ? nullptr : folders.back().lock();
}

void EdCodeView::useJournalFolder(const std::shared_ptr<JournalFolder> &folder)
{
    knownJournalFolders().push_back(folder);
}

// A file that several buffers have does not hold what was saved: the next of them overwrites it.
void EdCodeView::followChanges()
{
    if (!m_modified && !mayShareFile()) {
        discardJournal();
        return;
    }
    giveText(); // which may come here too
    if (m_journal || m_fileInfo.filePath().isEmpty())
        return;
    const std::shared_ptr<JournalFolder> folder = journalFolder();
    if (!folder)
        return;
    if (folder->ensure()) {
        beginJournal(folder, folder->newJournalPath());
        return;
    }
    if (!m_sinceNoJournal.isValid())
        emit journalFailed(tr("there is no folder for it"));
    m_sinceNoJournal.start();
}

// The folder may have come back; looking for it at each key could take too long.
void EdCodeView::tryJournalAgain()
{
    const int pause = 10000; // ms
    if (m_modified && !m_journal && m_sinceNoJournal.isValid() &&
        m_sinceNoJournal.hasExpired(pause))
        followChanges();
}

void EdCodeView::beginJournal(const std::shared_ptr<JournalFolder> &folder, const QString &path)
{
    QTextDocument *document = codeEdit()->document(); // first: line ends come with it
    m_journal = std::make_unique<TextJournal>(document, path, journalHeader());
    m_journal->setFolder(folder);
    connect(m_journal.get(), SIGNAL(failed(QString)), SIGNAL(journalFailed(QString)));
}

JournalHeader EdCodeView::journalHeader() const
{
    JournalHeader header;
    header.path = m_fileInfo.absoluteFilePath();
    header.isBuffer = m_isBuffer;
    header.bufferIndex = m_bufferIndex;
    header.encoding = m_encoding;
    header.lineEnd = m_lineEnds.usual();
    header.documentId = m_documentId;
    header.seen = m_seen;
    return header;
}

bool EdCodeView::flushJournal()
{
    return m_journal && m_journal->flush();
}

bool EdCodeView::keepChanges()
{
    if (!m_journal)
        followChanges();
    return m_journal && m_journal->flush(TextJournal::Insists);
}

void EdCodeView::discardJournal()
{
    if (m_journal)
        m_journal->remove();
    m_journal.reset();
}

void EdCodeView::becomeDocument(const JournalHeader &header, int bufferIndex)
{
    m_isBuffer = header.isBuffer;
    m_bufferIndex = header.isBuffer ? bufferIndex : -1;
    m_fileInfo = QFileInfo(header.path);
    m_encoding = header.encoding;
    m_lineEnds.mark(codeEdit()->document(), header.lineEnd);
    updateLanguage();
}

bool EdCodeView::becomeSharing(const QFileInfo &info, int bufferIndex)
{
    JournalHeader header;
    header.path = info.absoluteFilePath();
    header.isBuffer = true;
    becomeDocument(header, bufferIndex);
    return mayShareFile();
}

// Where lines end in several ways, each that is still there keeps its own.
void EdCodeView::giveLines(const QString &text)
{
    if (m_lineEnds.isMixed())
        changeLinesClosely(codeEdit()->document(), text);
    else
        changeLines(codeEdit()->document(), text);
}

// What has changed in the file since the journal was begun is to be asked about.
void EdCodeView::takeAfter(const JournalHeader &header)
{
    const QString path = m_fileInfo.absoluteFilePath();
    const bool isSame = path == header.path || compat::isSameFile(path, header.path);
    if (m_isBuffer != header.isBuffer || !isSame)
        return;
    if (!header.documentId.isEmpty())
        m_documentId = header.documentId;
    if (!m_isBuffer && (header.seen || QFileInfo(path).exists()))
        noteOwnFile(header.seen.value_or(noFingerprint));
}

// The journal becomes the view's own before anything else: whatever happens then, it is known whose
// text it is.
void EdCodeView::recover(const JournalContents &journal, const QString &journalPath)
{
    discardJournal();
    giveText();
    takeAfter(journal.header);
    const QByteArray header = headerRecord(journalHeader());
    const std::shared_ptr<JournalFolder> folder = journalFolder();
    QString ignored; // it stays where it is, and comes back again
    if (folder && folder->ensure() && !journalPath.isEmpty() &&
        appendRecords(journalPath, journal.size, header, &ignored)) {
        const QString path = folder->newJournalPath();
        if (compat::replaceFileSoon(path, journalPath, &ignored))
            beginJournal(folder, path);
    }
    const bool hasFile = m_journal != nullptr;
    if (text() != journal.text)
        giveLines(journal.text);
    if (hasFile && text() == journal.text)
        m_journal->adopt(journal.size + header.size());
    forceModified();
}
