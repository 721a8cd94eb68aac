// SPDX-License-Identifier: MIT
#include "workspace/textjournal.h"

#include "compat/filesystem.h"
#include "workspace/journalfolder.h"

#include <QFileInfo>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace {

const int mostEditUnits = 0x80000;   // a longer edit costs more than another copy in slices
const qint64 spareLog = 256 * 1024;  // bytes of edits that no text is too short for
const qint64 mostReplay = 200000000; // units to move when all edits are made again
const qint64 fewRecords = 200;
const qint64 mostBacklog = 4 * 1048576; // bytes to keep while the file takes none
const int mostDoublings = 6;            // of the pause after a failure

// One by one, which is slow, but all else copies a whole line, and has it laid out.
QString characters(const QTextDocument &document, int from, int to)
{
    QString text;
    text.reserve(to - from);
    for (int position = from; position < to; ++position) {
        const QChar character = document.characterAt(position);
        text += character == QChar::ParagraphSeparator ? QChar(QLatin1Char('\n')) : character;
    }
    return text;
}

// From a position on, about so many units. By blocks: a cursor would have lines laid out that were
// never shown.
QString textFrom(const QTextDocument &document, int position, int about)
{
    QString text;
    for (QTextBlock block = document.findBlock(position); block.isValid() && text.size() < about;
         block = block.next()) {
        const int from = std::max(position, block.position());
        const bool isLast = !block.next().isValid();
        const int end = block.position() + block.length() - (isLast ? 1 : 0);
        if (block.length() > about)
            return text + characters(document, from, std::min(end, from + about));
        text += block.text().mid(from - block.position());
        if (!isLast)
            text += QLatin1Char('\n');
    }
    return text;
}

} // namespace

void TextJournal::Backlog::add(const JournalEdit &edit)
{
    if (edits.empty() || !edits.back().merge(edit))
        edits.push_back(edit);
}

const QByteArray &TextJournal::Backlog::toRecords()
{
    for (const JournalEdit &edit : edits)
        records += editRecord(edit);
    edits.clear();
    return records;
}

void TextJournal::Backlog::clear()
{
    records.clear();
    edits.clear();
}

TextJournal::TextJournal(QTextDocument *document, const QString &path, const JournalHeader &header,
                         QObject *parent)
    : QObject(parent), m_document(document), m_path(path), m_header(header)
{
    m_copyTimer.setInterval(0);
    m_writeTimer.setSingleShot(true);
    m_retryTimer.setSingleShot(true);
    connect(document, SIGNAL(contentsChange(int, int, int)), SLOT(onContentsChange(int, int, int)));
    connect(&m_copyTimer, SIGNAL(timeout()), SLOT(copyForAWhile()));
    connect(&m_writeTimer, SIGNAL(timeout()), SLOT(writePending()));
    connect(&m_retryTimer, SIGNAL(timeout()), SLOT(retryCopy()));
    m_length = length();
    m_revision = document->revision();
    startCopy();
}

TextJournal::~TextJournal()
{
    m_retryTimer.stop(); // there is no later
    flush();
    if (m_isCopying)
        giveUpCopy();
}

void TextJournal::adopt(qint64 size)
{
    giveUpCopy();
    m_log.clear();
    m_follows = true;
    m_size = size;
    m_copySize = 2 * qint64(m_length);
}

void TextJournal::setHeader(const JournalHeader &header)
{
    m_header = header;
    if (m_isRemoved)
        return;
    if (m_copy.isOpen()) {
        m_forCopy.toRecords();
        m_forCopy.records += headerRecord(header);
    }
    if (m_follows) {
        m_log.toRecords();
        m_log.records += headerRecord(header);
        writePending();
    }
}

void TextJournal::onContentsChange(int position, int removed, int added)
{
    const int oldLength = m_length;
    m_length = length();
    const bool isFormat = m_document->revision() == m_revision && removed == added;
    m_revision = m_document->revision();
    if (isFormat || m_isRemoved)
        return;
    // Qt may count the separator at the document's end.
    removed = std::min(removed, oldLength - position);
    added = std::min(added, m_length - position);
    if (removed >= 0 && added >= 0 && oldLength - removed + added == m_length &&
        added <= mostEditUnits) {
        record(position, removed, added);
        return;
    }
    writePending(); // which still fits what the file has
    m_log.clear();
    m_follows = false;
    startCopy();
}

// What the copy has to reckon with are the edits inside the part that it has already. Those behind
// it will be copied with the rest, one across its end moves that.
void TextJournal::record(int position, int removed, int added)
{
    const bool isInCopy = m_isCopying && position < m_copied;
    if (!m_follows && !isInCopy)
        return;
    JournalEdit edit;
    edit.position = position;
    edit.removed = removed;
    edit.added = textOfEdit(position, added);
    if (m_follows) {
        if (m_log.isEmpty())
            m_sinceFirstPending.start();
        m_log.add(edit);
        schedule();
    }
    if (isInCopy) {
        edit.removed = std::min(removed, m_copied - position);
        m_copied += int(edit.added.size()) - edit.removed;
        m_forCopy.add(edit);
    }
}

// Not by blocks: a line may be as long as the document.
QString TextJournal::textOfEdit(int position, int count) const
{
    if (count == 0)
        return QString();
    QTextCursor cursor(m_document);
    cursor.setPosition(position);
    cursor.setPosition(position + count, QTextCursor::KeepAnchor);
    return cursor.selectedText().replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
}

void TextJournal::schedule()
{
    if (m_appendFailed) // it is tried again in a moment
        return;
    const int left = m_pace.afterFirst - int(m_sinceFirstPending.elapsed());
    m_writeTimer.start(std::clamp(left, 0, m_pace.afterLast));
}

void TextJournal::writePending()
{
    m_writeTimer.stop();
    if (!m_follows || m_log.isEmpty())
        return;
    m_logRecords += qint64(m_log.edits.size());
    const QByteArray &records = m_log.toRecords();
    QString reason;
    if (appendRecords(m_path, m_size, records, &reason)) {
        m_size += records.size();
        m_log.clear();
        m_appendFailed = false;
        m_saysFailed = true;
        if (wantsCopy() && !m_isCopying && !m_retryTimer.isActive())
            startCopy();
        return;
    }
    const bool isGone = isFileGone();
    if (isGone || records.size() > mostBacklog) {
        m_log.clear();
        m_follows = false;
    }
    m_appendFailed = m_follows;
    if (m_appendFailed)
        m_writeTimer.start(m_pace.retry);
    if (!isGone)
        tell(reason);
    // A new file may do where the old one does not.
    if (!m_isCopying && !m_retryTimer.isActive())
        startCopy();
}

// Somebody tidied up.
bool TextJournal::isFileGone() const
{
    return QFileInfo(m_path).size() < m_size;
}

bool TextJournal::wantsCopy() const
{
    const bool isLong = m_size > 2 * m_copySize + spareLog;
    const bool isSlowToRead = m_logRecords > fewRecords && m_logRecords * m_length > mostReplay;
    return !m_follows || isLong || isSlowToRead;
}

void TextJournal::startCopy()
{
    giveUpCopy();
    m_retryTimer.stop();
    m_isCopying = true;
    m_copyTimer.start();
}

void TextJournal::giveUpCopy()
{
    m_isCopying = false;
    m_copyTimer.stop();
    m_forCopy.clear();
    m_copied = 0;
    if (!m_copy.isOpen())
        return;
    m_copy.close();
    QFile::remove(copyPath());
}

void TextJournal::copyForAWhile()
{
    QElapsedTimer clock;
    clock.start();
    while (m_isCopying && copySlice() && clock.elapsed() < m_pace.turn) {
    }
}

// False when it failed.
bool TextJournal::copySlice()
{
    if (!m_copy.isOpen() && !beginCopy())
        return false;
    QByteArray bytes = m_forCopy.toRecords();
    m_forCopy.clear();
    if (m_copied < length()) {
        const QString part = textFrom(*m_document, m_copied, m_pace.slice);
        m_copied += int(part.size());
        bytes += partRecord(part);
    }
    return writeCopy(bytes) && (m_copied < length() || completeCopy());
}

bool TextJournal::beginCopy()
{
    const QString place = m_folder ? m_folder->placeFor(m_path) : m_path;
    if (place != m_path) // with the folder, the file is gone
        m_follows = false;
    m_path = place;
    QString reason;
    QFile::remove(copyPath());
    if (compat::createFile(&m_copy, copyPath(), compat::Access::UserOnly, &reason))
        return writeCopy(journalStart() + headerRecord(m_header));
    return failCopy(reason);
}

bool TextJournal::completeCopy()
{
    if (!writeCopy(completeRecord()))
        return false;
    QString reason;
    const qint64 size = m_copy.size();
    m_copy.close(); // some systems do not move a file that is open
    if (!compat::replaceFileSoon(m_path, copyPath(), &reason)) {
        QFile::remove(copyPath());
        return failCopy(reason);
    }
    giveUpCopy();
    m_log.clear();
    m_follows = true;
    m_appendFailed = false;
    m_writeTimer.stop();
    m_retryTimer.stop();
    m_size = size;
    m_copySize = size;
    m_logRecords = 0;
    m_failures = 0;
    m_saysFailed = true;
    return true;
}

bool TextJournal::writeCopy(const QByteArray &bytes)
{
    return m_copy.write(bytes) == bytes.size() || failCopy(m_copy.errorString());
}

// No harm while the file gets the edits, which goes on.
bool TextJournal::failCopy(const QString &reason)
{
    giveUpCopy();
    m_retryTimer.start(m_pace.retry << std::min(m_failures++, mostDoublings));
    if (!m_follows)
        tell(reason);
    return false;
}

void TextJournal::tell(const QString &reason)
{
    if (m_saysFailed)
        emit failed(reason);
    m_saysFailed = false;
}

void TextJournal::retryCopy()
{
    if (isSafe() && !wantsCopy())
        m_failures = 0;
    else if (!m_isCopying)
        startCopy();
}

bool TextJournal::flush(Patience patience)
{
    if (m_isRemoved)
        return false;
    m_follows = m_follows && !isFileGone();
    writePending();
    if (!m_follows && !m_isCopying && (patience == Insists || !m_retryTimer.isActive()))
        startCopy();
    while (!m_follows && m_isCopying && copySlice()) {
    }
    return isSafe();
}

void TextJournal::remove()
{
    giveUpCopy();
    m_isRemoved = true;
    m_follows = false;
    m_log.clear();
    m_writeTimer.stop();
    m_retryTimer.stop();
    QFile::remove(m_path);
}
