// SPDX-License-Identifier: MIT
// The view's part that keeps its unsaved text against the end of the program.
#include "workspace/edcodeview.h"

#include "compat/filesystem.h"
#include "editor/edcodeedit.h"
#include "workspace/journalfolder.h"
#include "workspace/linechange.h"
#include "workspace/textjournal.h"

namespace {

JournalFolder *&sharedJournalFolder()
{
    static JournalFolder *folder = nullptr;
    return folder;
}

} // namespace

JournalFolder *EdCodeView::journalFolder()
{
    return sharedJournalFolder();
}

void EdCodeView::setJournalFolder(JournalFolder *folder)
{
    sharedJournalFolder() = folder;
}

// A file that several buffers have does not hold what was saved: the next of them overwrites it.
void EdCodeView::followChanges()
{
    const JournalFolder *folder = sharedJournalFolder();
    if (!m_modified && !mayShareFile()) {
        discardJournal();
        return;
    }
    giveText(); // which may come here too
    if (!m_journal && folder && folder->isValid() && !m_fileInfo.filePath().isEmpty())
        beginJournal(sharedJournalFolder()->newJournalPath());
}

void EdCodeView::beginJournal(const QString &path)
{
    giveText(); // first: line ends come with it
    m_journal = std::make_unique<TextJournal>(m_codeEdit->document(), path, journalHeader());
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
    return header;
}

void EdCodeView::flushJournal()
{
    if (m_journal)
        m_journal->flush();
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
    m_lineEnds.mark(m_codeEdit->document(), header.lineEnd);
    updateLanguage();
}

void EdCodeView::recover(const JournalContents &journal, const QString &journalPath)
{
    JournalFolder *folder = sharedJournalFolder();
    QString ignored; // it stays where it is, and comes back again
    discardJournal();
    if (folder && folder->isValid() && !journalPath.isEmpty()) {
        const QString path = folder->newJournalPath();
        if (compat::replaceFileSoon(path, journalPath, &ignored))
            beginJournal(path);
    }
    if (text() != journal.text)
        changeLines(codeEdit()->document(), journal.text);
    forceModified();
}
