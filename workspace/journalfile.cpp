// SPDX-License-Identifier: MIT
#include "workspace/journalfile.h"

#include "compat/filesystem.h"

#include <QDataStream>
#include <QFile>

#include <array>

namespace {

const char startMark[] = "CorvaneJournal 1\n";

enum Kind : quint8 { HeaderKind = 1, PartKind, EditKind, CompleteKind };

using ChecksumTable = std::array<quint32, 256>;

constexpr ChecksumTable makeChecksumTable()
{
    ChecksumTable table = {};
    for (quint32 byte = 0; byte < 256; ++byte) {
        quint32 value = byte;
        for (int bit = 0; bit < 8; ++bit)
            value = value & 1 ? 0xEDB88320u ^ (value >> 1) : value >> 1;
        table[byte] = value;
    }
    return table;
}

// CRC-32 of the range from `from` on.
quint32 checksum(const QByteArray &bytes, int from, int size)
{
    static constexpr ChecksumTable table = makeChecksumTable();
    quint32 value = 0xFFFFFFFFu;
    for (int i = from; i < from + size; ++i)
        value = table[(value ^ quint8(bytes.at(i))) & 0xFF] ^ (value >> 8);
    return ~value;
}

// One format, whatever version of Qt writes and reads.
void unify(QDataStream *stream)
{
    stream->setVersion(QDataStream::Qt_4_8);
}

// The rest of the arguments are written in their order.
template <typename... Values>
QByteArray record(Kind kind, const Values &...values)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    unify(&stream);
    stream << quint8(kind);
    (void)(stream << ... << values);
    return checkedRecord(payload);
}

const int frameSize = 8; // the length and the checksum before each payload

// Of the payload behind the frame that begins there.
quint32 sizeAt(const QByteArray &bytes, int position)
{
    quint32 size = 0;
    for (int i = position; i < position + 4; ++i)
        size = size << 8 | quint8(bytes.at(i));
    return size;
}

// Builds the text from one record after the other.
class Replay
{
public:
    // False when the record makes no sense.
    bool take(const QByteArray &payload)
    {
        QDataStream stream(payload);
        unify(&stream);
        quint8 kind = 0;
        stream >> kind;
        return takeKind(kind, &stream) && stream.status() == QDataStream::Ok && stream.atEnd();
    }
    bool isComplete() const { return m_isComplete; }
    bool hasHeader() const { return m_hasHeader; }

    JournalContents contents;

private:
    bool takeKind(quint8 kind, QDataStream *stream)
    {
        switch (kind) {
        case HeaderKind:
            return takeHeader(stream);
        case PartKind:
            return takePart(stream);
        case EditKind:
            return takeEdit(stream);
        case CompleteKind:
            return m_isComplete = true;
        default:
            return false;
        }
    }
    bool takeHeader(QDataStream *stream)
    {
        JournalHeader header;
        qint32 encoding = 0;
        qint32 bufferIndex = 0;
        *stream >> header.path >> header.isBuffer >> bufferIndex >> encoding >> header.lineEnd >>
            header.documentId;
        bool hasSeen = false;
        qint64 seenSize = 0;
        quint64 seenHash = 0;
        *stream >> hasSeen >> seenSize >> seenHash;
        if (hasSeen)
            header.seen = Fingerprint{seenSize, seenHash};
        if (encoding < 0 || encoding > qint32(TextEncoding::Latin1))
            return false;
        header.bufferIndex = bufferIndex;
        header.encoding = static_cast<TextEncoding>(encoding);
        contents.header = header;
        return m_hasHeader = stream->status() == QDataStream::Ok;
    }
    bool takePart(QDataStream *stream)
    {
        QString part;
        *stream >> part;
        contents.text += part;
        return true;
    }
    bool takeEdit(QDataStream *stream)
    {
        qint32 position = 0;
        qint32 removed = 0;
        JournalEdit edit;
        *stream >> position >> removed >> edit.added;
        edit.position = position;
        edit.removed = removed;
        return stream->status() == QDataStream::Ok && edit.apply(&contents.text);
    }

    bool m_isComplete = false;
    bool m_hasHeader = false;
};

// Whether there is a whole record somewhere behind the position. Looking stops where it would take
// long, with the answer that keeps most.
bool isRecordBehind(const QByteArray &bytes, int position)
{
    qint64 left = 50000000; // bytes to make checksums of
    const int last = int(bytes.size()) - frameSize - 1;
    while (++position <= last && left > 0) {
        const quint8 kind = quint8(bytes.at(position + frameSize));
        const quint32 size = sizeAt(bytes, position);
        if (kind < HeaderKind || kind > CompleteKind || size > quint32(last + 1 - position))
            continue;
        left -= size;
        int end = position;
        if (!takeRecord(bytes, &end).isNull())
            return true;
    }
    return left <= 0;
}

// Whether a record that is not whole is only the last one, which the program's end has cut short.
bool isTorn(const QByteArray &bytes, int position)
{
    const qint64 left = bytes.size() - position - frameSize;
    return left < 0 || (sizeAt(bytes, position) >= left && !isRecordBehind(bytes, position));
}

} // namespace

bool JournalEdit::merge(const JournalEdit &next)
{
    const int mostAdded = 4096; // beyond it, moving the text would cost more than a record
    const int offset = next.position - position;
    if (int(added.size()) + int(next.added.size()) > mostAdded)
        return false;
    if (offset >= 0 && offset + next.removed <= added.size()) {
        added.replace(offset, next.removed, next.added);
        return true;
    }
    if (offset + next.removed != 0) // as Backspace does, over and over
        return false;
    position = next.position;
    removed += next.removed;
    added.prepend(next.added);
    return true;
}

bool JournalEdit::apply(QString *text) const
{
    if (position < 0 || removed < 0 || position > text->size() || removed > text->size() - position)
        return false;
    text->replace(position, removed, added);
    return true;
}

QByteArray journalStart()
{
    return startMark;
}

QByteArray headerRecord(const JournalHeader &header)
{
    const Fingerprint seen = header.seen.value_or(Fingerprint());
    return record(HeaderKind, header.path, header.isBuffer, qint32(header.bufferIndex),
                  qint32(header.encoding), header.lineEnd, header.documentId,
                  header.seen.has_value(), qint64(seen.size), quint64(seen.hash));
}

QByteArray partRecord(const QString &part)
{
    return record(PartKind, part);
}

QByteArray editRecord(const JournalEdit &edit)
{
    return record(EditKind, qint32(edit.position), qint32(edit.removed), edit.added);
}

QByteArray completeRecord()
{
    return record(CompleteKind);
}

JournalContents parseJournal(const QByteArray &bytes)
{
    if (!bytes.startsWith(startMark))
        return JournalContents();
    Replay replay;
    int position = int(sizeof startMark) - 1;
    bool isIntact = true;
    while (isIntact && position < bytes.size()) {
        const int before = position;
        const QByteArray payload = takeRecord(bytes, &position);
        if (payload.isNull() && isTorn(bytes, before))
            break;
        isIntact = !payload.isNull() && replay.take(payload);
    }
    replay.contents.size = position;
    if (replay.hasHeader()) {
        isIntact = isIntact && replay.isComplete();
        replay.contents.state = isIntact ? JournalContents::Intact : JournalContents::Damaged;
    }
    return replay.contents;
}

JournalContents readJournal(const QString &path)
{
    QFile file(path);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (file.error() == QFile::NoError)
        return parseJournal(bytes);
    JournalContents contents;
    contents.state = JournalContents::Refused;
    contents.refusal = file.errorString();
    return contents;
}

bool appendRecords(const QString &path, qint64 size, const QByteArray &records,
                   QString *errorMessage)
{
    QFile file;
    if (!compat::openToAppend(&file, path, errorMessage))
        return false;
    const bool fits = file.size() == size || (file.size() > size && file.resize(size));
    if (fits && file.write(records) == records.size())
        return true;
    *errorMessage = file.errorString();
    if (fits)
        file.resize(size);
    return false;
}

QByteArray checkedRecord(const QByteArray &payload)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << quint32(payload.size()) << checksum(payload, 0, int(payload.size()));
    return bytes + payload;
}

QByteArray takeRecord(const QByteArray &bytes, int *position)
{
    QDataStream stream(bytes.mid(*position, frameSize));
    quint32 size = 0;
    quint32 expected = 0;
    stream >> size >> expected;
    const qint64 available = qint64(bytes.size()) - *position - frameSize;
    if (stream.status() != QDataStream::Ok || available < qint64(size) || size == 0 ||
        checksum(bytes, *position + frameSize, int(size)) != expected)
        return QByteArray();
    const QByteArray payload = bytes.mid(*position + frameSize, int(size));
    *position += frameSize + int(size);
    return payload;
}
