// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/journalfile.h"

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTextDocument>
#include <QTimer>

#include <memory>
#include <vector>

class JournalFolder;

// Keeps the unsaved text of one document in a file, so that the end of the program does not take it
// away. The file gets a copy of the text first and each edit afterwards, so what a key costs does
// not depend on the size of the document. Where that makes the file too long another copy takes its
// place; copies are made in slices between the user's events, while the file goes on getting edits.
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
        int retry = 1000;      // after a failure; after each of a copy twice as much
        int turn = 2;          // of copying before the user's events have theirs
        int slice = 0x10000;   // units about
    };

    // The document must outlive it. Begins with the text as it is when the event loop runs next; a
    // file that is there already stays until the copy is complete.
    TextJournal(QTextDocument *document, const QString &path, const JournalHeader &header,
                QObject *parent = nullptr);
    // Writes what is missing and leaves the file.
    ~TextJournal() override;

    QString path() const { return m_path; }
    void setPace(const Pace &pace) { m_pace = pace; }
    // The folder of the path, where it is one that is made again when somebody tidied up.
    void setFolder(const std::shared_ptr<JournalFolder> &folder) { m_folder = folder; }
    // Goes on with the file, whose first `size` bytes are a journal of the document's text.
    void adopt(qint64 size);
    // Once the document has another file, or what it has seen of it has changed.
    void setHeader(const JournalHeader &header);
    // Has the file hold the text now. False when it cannot be written; what has failed a moment
    // ago is only tried again if that is insisted on.
    enum Patience { WaitsForRetry, Insists };
    bool flush(Patience patience = WaitsForRetry);
    // Deletes the file and follows the document no more.
    void remove();

signals:
    // Once until it goes well again. It is tried again after a while.
    void failed(const QString &reason);

private slots:
    void onContentsChange(int position, int removed, int added);
    void copyForAWhile();
    void writePending();
    void retryCopy();

private:
    // Edits in their order, those that have become records first.
    struct Backlog
    {
        QByteArray records;
        std::vector<JournalEdit> edits;

        bool isEmpty() const { return records.isEmpty() && edits.empty(); }
        void add(const JournalEdit &edit);
        // Makes records of them all.
        const QByteArray &toRecords();
        void clear();
    };

    int length() const { return m_document->characterCount() - 1; } // without the last separator
    QString textOfEdit(int position, int count) const;
    void record(int position, int removed, int added);
    void schedule();
    void startCopy();
    bool copySlice();
    bool beginCopy();
    bool completeCopy();
    bool writeCopy(const QByteArray &bytes);
    void giveUpCopy();
    bool failCopy(const QString &reason);
    bool isFileGone() const;
    bool wantsCopy() const;
    void tell(const QString &reason);
    // Whether the file has the text.
    bool isSafe() const { return m_follows && m_log.isEmpty(); }
    QString copyPath() const { return m_path + QLatin1String(".tmp"); }

    QTextDocument *m_document;
    QString m_path;
    std::shared_ptr<JournalFolder> m_folder;
    JournalHeader m_header;
    Pace m_pace;
    bool m_isRemoved = false;
    int m_length = 0;   // of the document after the last change
    int m_revision = 0; // the document's

    bool m_follows = false; // the file and then m_log make up the text
    Backlog m_log;
    qint64 m_size = 0;     // bytes of the file
    qint64 m_copySize = 0; // of these, what it began with
    qint64 m_logRecords = 0;
    QElapsedTimer m_sinceFirstPending;
    QTimer m_writeTimer;
    bool m_appendFailed = false; // and m_writeTimer is for the next attempt

    bool m_isCopying = false;
    QFile m_copy;     // what will be the file; open while copying
    int m_copied = 0; // units at the start of the document that the copy has, but for m_forCopy
    Backlog m_forCopy;
    QTimer m_copyTimer;

    bool m_saysFailed = true;
    int m_failures = 0;  // of copies, since all went well
    QTimer m_retryTimer; // for the next copy
};
