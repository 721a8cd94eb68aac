// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/textencoding.h"
#include "workspace/textfile.h"

#include <QByteArray>
#include <QString>

#include <optional>

// How the unsaved text of one document is kept in a file: a header, the text in parts, and the
// edits since. Each of these is a record of its own with a checksum, so a file can grow by one edit
// at a time, and one whose last record is torn is worth all that comes before it.

// What is needed to show the document again.
struct JournalHeader
{
    QString path; // of the document's own file, absolute; it may be missing
    bool isBuffer = false;
    int bufferIndex = -1;
    TextEncoding encoding = TextEncoding::Utf8;
    QString lineEnd = QLatin1String("\n"); // the usual one of the file
    QString documentId;                    // tells buffers apart that share a file
    // What the document has seen of its file; nothing where there was none.
    std::optional<Fingerprint> seen;
};

// Replaces `removed` units of the text by others.
struct JournalEdit
{
    int position = 0;
    int removed = 0;
    QString added;

    // Takes up an edit that follows this one and touches its text. False when it does not, or when
    // that would be no saving.
    bool merge(const JournalEdit &next);
    // False when the text has no such place; it is then unchanged.
    bool apply(QString *text) const;
};

// A file is their concatenation: the start, then any number of parts and edits (a part goes to the
// end of the text as the edits before it have left it), the mark of the complete text, and edits.
// Headers may come again; the last one counts.
QByteArray journalStart();
QByteArray headerRecord(const JournalHeader &header);
QByteArray partRecord(const QString &part);
QByteArray editRecord(const JournalEdit &edit);
QByteArray completeRecord();

struct JournalContents
{
    enum State { Intact, Damaged, Unreadable, Refused };

    JournalHeader header;
    QString text;    // lines end in "\n"
    qint64 size = 0; // bytes that the text was made of
    // A torn last record is no damage. Of a damaged journal the text is what comes before the
    // damage; an unreadable one has nothing. One that the system refuses to read may be all right.
    State state = Unreadable;
    QString refusal; // the reason
};

JournalContents parseJournal(const QByteArray &bytes);
JournalContents readJournal(const QString &path);

// Puts records behind the first `size` bytes of a file, in the place of what is there. On failure
// it returns false, puts the reason into errorMessage, and leaves no part of them if it can.
bool appendRecords(const QString &path, qint64 size, const QByteArray &records,
                   QString *errorMessage);

// Records of other kinds of files: appended, and read back in the order of their writing. Reading
// returns the payload and moves the position behind it; null where no whole record is.
QByteArray checkedRecord(const QByteArray &payload);
QByteArray takeRecord(const QByteArray &bytes, int *position);
