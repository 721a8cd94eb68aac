// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/journalfile.h"

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTextDocument>
#include <QTimer>

#include <vector>

// Keeps the unsaved text of one document in a file, so that the end of the program does not take it
// away. The file gets a copy of the text first and each edit afterwards, so what a key costs does
// not depend on the size of the document; the copy is made in slices between the user's events.
// Nothing waits for the disk: the system has what was written even when the program is killed.
class TextJournal : public QObject
{
    Q_OBJECT

public:
    // Times are in ms, less what Qt takes off or adds to spare timers: texts shall be safe 1 s
    // after the last key and 2 s after any.
    struct Pace
    {
        int afterLast = 900;   // from an edit that none follows to its being written
        int afterFirst = 1800; // from any edit
        int retry = 10000;     // after a failure
        int turn = 2;          // of copying before the user's events have theirs
        int slice = 0x10000;   // units at least, unless the text ends; lines stay whole
    };

    // The document must outlive it. Begins with the text as it is when the event loop runs next; a
    // file that is there already, that of a text that was recovered, stays until the copy is
    // complete.
    TextJournal(QTextDocument *document, const QString &path, const JournalHeader &header,
                QObject *parent = nullptr);
    // Writes what is missing and leaves the file.
    ~TextJournal() override;

    QString path() const { return m_path; }
    void setPace(const Pace &pace) { m_pace = pace; }
    // Once the document has another file.
    void setHeader(const JournalHeader &header);
    // Completes the file now. False when it cannot be written.
    bool flush();
    // Deletes the file and follows the document no more.
    void remove();

signals:
    // Once until it goes well again. Edits are kept in memory no longer; a new copy is tried later.
    void failed(const QString &reason);

private slots:
    void onContentsChange(int position, int removed, int added);
    void restart();
    void copyForAWhile();
    void writePending();

private:
    int length() const { return m_document->characterCount() - 1; } // without the last separator
    QString textOfEdit(int position, int count) const;
    void record(int position, int removed, int added);
    void add(const JournalEdit &edit);
    void schedule();
    bool copySlice();
    bool beginCopy();
    bool completeCopy();
    QByteArray takePending();
    bool write(QFile *file, const QByteArray &bytes);
    void fail(const QString &reason);
    QString copyPath() const { return m_path + QLatin1String(".tmp"); }

    enum class State { Copying, Following, Failed, Removed };

    QTextDocument *m_document;
    QString m_path;
    JournalHeader m_header;
    Pace m_pace;
    State m_state = State::Copying;
    QFile m_copy;       // what will be the file; open while copying
    int m_copied = 0;   // units at the start of the document that the copy has
    int m_length = 0;   // of the document after the last change
    int m_revision = 0; // the document's
    std::vector<JournalEdit> m_pending;
    QElapsedTimer m_sinceFirstPending;
    qint64 m_copySize = 0; // bytes
    qint64 m_logSize = 0;  // bytes behind the copy
    qint64 m_logRecords = 0;
    bool m_saysFailed = true;
    QTimer m_copyTimer;
    QTimer m_writeTimer;
    QTimer m_retryTimer;
};
