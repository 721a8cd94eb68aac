// SPDX-License-Identifier: MIT
#include "workspace/textjournal.h"

#include "compat/filesystem.h"

#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace {

const int mostEditUnits = 0x80000;   // a longer edit costs more than another copy in slices
const qint64 spareLog = 256 * 1024;  // bytes of edits that no text is too short for
const qint64 mostReplay = 200000000; // units to move when all edits are made again
const qint64 fewRecords = 200;

// From a position on, whole lines up to a number of units or the document's end. By blocks: a
// cursor would have lines laid out that were never shown.
QString textFrom(const QTextDocument &document, int position, int atLeast)
{
    QTextBlock block = document.findBlock(position);
    QString text = block.text().mid(position - block.position());
    for (block = block.next(); block.isValid() && text.size() < atLeast; block = block.next()) {
        text += QLatin1Char('\n');
        text += block.text();
    }
    if (block.isValid())
        text += QLatin1Char('\n');
    return text;
}

} // namespace

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
    connect(&m_retryTimer, SIGNAL(timeout()), SLOT(restart()));
    m_length = length();
    m_revision = document->revision();
    restart();
}

TextJournal::~TextJournal()
{
    flush();
}

void TextJournal::setHeader(const JournalHeader &header)
{
    m_header = header;
    if (m_state != State::Removed)
        restart();
}

// What edits have to be reckoned with: only those inside the part that is copied already. Those
// behind it will be copied with the rest, one across its end moves that.
void TextJournal::onContentsChange(int position, int removed, int added)
{
    const int oldLength = m_length;
    m_length = length();
    const bool isFormat = m_document->revision() == m_revision && removed == added;
    m_revision = m_document->revision();
    if (isFormat || m_state == State::Failed || m_state == State::Removed)
        return;
    // Qt may count the separator at the document's end.
    removed = std::min(removed, oldLength - position);
    added = std::min(added, m_length - position);
    if (removed < 0 || added < 0 || oldLength - removed + added != m_length ||
        added > mostEditUnits)
        restart();
    else
        record(position, removed, added);
}

void TextJournal::record(int position, int removed, int added)
{
    if (m_state == State::Copying && position >= m_copied)
        return;
    JournalEdit edit;
    edit.position = position;
    edit.removed = std::min(removed, m_copied - position);
    edit.added = textOfEdit(position, added);
    m_copied += int(edit.added.size()) - edit.removed;
    add(edit);
    schedule();
}

void TextJournal::add(const JournalEdit &edit)
{
    if (m_pending.empty())
        m_sinceFirstPending.start();
    if (m_pending.empty() || !m_pending.back().merge(edit))
        m_pending.push_back(edit);
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
    if (m_state != State::Following)
        return; // the copy takes all edits along
    const int left = m_pace.afterFirst - int(m_sinceFirstPending.elapsed());
    m_writeTimer.start(std::clamp(left, 0, m_pace.afterLast));
}

void TextJournal::restart()
{
    m_writeTimer.stop();
    m_retryTimer.stop();
    m_copy.close();
    m_pending.clear();
    m_copied = 0;
    m_state = State::Copying;
    m_copyTimer.start();
}

void TextJournal::copyForAWhile()
{
    QElapsedTimer clock;
    clock.start();
    while (m_state == State::Copying && copySlice() && clock.elapsed() < m_pace.turn) {
    }
    if (m_state != State::Copying)
        m_copyTimer.stop();
}

// False when it failed.
bool TextJournal::copySlice()
{
    if (!m_copy.isOpen() && !beginCopy())
        return false;
    QByteArray bytes = takePending();
    if (m_copied < length()) {
        const QString part = textFrom(*m_document, m_copied, m_pace.slice);
        m_copied += int(part.size());
        bytes += partRecord(part);
    }
    return write(&m_copy, bytes) && (m_copied < length() || completeCopy());
}

bool TextJournal::beginCopy()
{
    QString reason;
    QFile::remove(copyPath());
    if (compat::createFile(&m_copy, copyPath(), compat::Access::UserOnly, &reason))
        return write(&m_copy, journalStart() + headerRecord(m_header));
    fail(reason);
    return false;
}

bool TextJournal::completeCopy()
{
    if (!write(&m_copy, completeRecord()))
        return false;
    QString reason;
    m_copySize = m_copy.size();
    m_copy.close(); // some systems do not move a file that is open
    if (!compat::replaceFileSoon(m_path, copyPath(), &reason)) {
        fail(reason);
        return false;
    }
    m_state = State::Following;
    m_logSize = 0;
    m_logRecords = 0;
    m_saysFailed = true;
    return true;
}

void TextJournal::writePending()
{
    if (m_state != State::Following || m_pending.empty())
        return;
    m_writeTimer.stop();
    m_logRecords += qint64(m_pending.size());
    const QByteArray bytes = takePending();
    m_logSize += bytes.size();
    QFile file(m_path);
    if (!file.exists()) { // somebody tidied up, and opening would create an empty file
        restart();
        return;
    }
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
        fail(file.errorString());
        return;
    }
    if (!write(&file, bytes))
        return;
    const bool isLong = m_logSize > m_copySize + spareLog;
    const bool isSlowToRead = m_logRecords > fewRecords && m_logRecords * m_length > mostReplay;
    if (isLong || isSlowToRead)
        restart();
}

QByteArray TextJournal::takePending()
{
    QByteArray bytes;
    for (const JournalEdit &edit : m_pending)
        bytes += editRecord(edit);
    m_pending.clear();
    return bytes;
}

// What was written of a record is no harm: it is the last one of its file.
bool TextJournal::write(QFile *file, const QByteArray &bytes)
{
    if (file->write(bytes) == bytes.size())
        return true;
    fail(file->errorString());
    return false;
}

void TextJournal::fail(const QString &reason)
{
    m_copy.close();
    QFile::remove(copyPath());
    m_pending.clear();
    m_copyTimer.stop();
    m_writeTimer.stop();
    m_state = State::Failed;
    m_retryTimer.start(m_pace.retry);
    if (m_saysFailed)
        emit failed(reason);
    m_saysFailed = false;
}

bool TextJournal::flush()
{
    if (m_state == State::Failed)
        restart();
    writePending(); // which may begin another copy
    while (m_state == State::Copying && copySlice()) {
    }
    m_copyTimer.stop();
    return m_state == State::Following;
}

void TextJournal::remove()
{
    m_state = State::Removed;
    m_pending.clear();
    m_copyTimer.stop();
    m_writeTimer.stop();
    m_retryTimer.stop();
    m_copy.close();
    QFile::remove(copyPath());
    QFile::remove(m_path);
}
