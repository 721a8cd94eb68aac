// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/lineends.h"
#include "workspace/textfile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QWidget>

#include <memory>
#include <optional>

class EdCodeEdit;
class JournalFolder;
class TextJournal;
struct JournalContents;
struct JournalHeader;
struct LineChange;

// One open document: its text widget and the file behind it. A buffer is a document that the user
// never gave a file; it has one all the same, in the buffer directory, so that it survives the
// program. Asking whether changes may be lost is the business of the view's owner.
class EdCodeView : public QWidget
{
    Q_OBJECT

public:
    // What the constructor takes and language() returns; the editor has other numbers.
    enum Language { Text = 0, Python = 1, Mel = 2 };
    // The buffer index of a view that is about to be given a file.
    enum { AwaitsFile = -9999 };

    // Creates the buffer's file, unless the view awaits one.
    EdCodeView(int bufferIndex, int language, QWidget *parent = nullptr);
    // A view that awaits a file, and makes its text widget when that is first asked for: of many
    // tabs few may ever be looked at.
    static EdCodeView *createUnseen(QWidget *parent);
    // Leaves the journal of a text that is not saved.
    ~EdCodeView() override;

    // One directory for all views; it must exist.
    static QDir bufferDirectory();
    static void setBufferDirectory(const QDir &directory);
    // Whether the path, which must be a plain one, is such as a buffer's file has: closing a buffer
    // deletes its file.
    static bool isBufferPath(const QString &path);
    // Where unsaved texts are kept against the end of the program: of the folders that are still in
    // use that which was given last; null for nowhere. Texts keep theirs in use.
    static std::shared_ptr<JournalFolder> journalFolder();
    static void useJournalFolder(const std::shared_ptr<JournalFolder> &folder);

    // Replaces the document by the file's, which may be that of a buffer; where it is the
    // document's own, by an edit that can be undone. A file that cannot be read is reported to the
    // user; the text is then left alone and the result is false.
    bool load(const QFileInfo &info, bool isBuffer, int bufferIndex);
    // The same without a box; returns the reason of a failure, or an empty text.
    QString loadQuietly(const QFileInfo &info, bool isBuffer, int bufferIndex);
    // Reads the document's file again, by one edit that can be undone: caret, selection and scroll
    // position stay where they are in the text. A failure is as with the two above.
    bool reload();
    QString reloadQuietly();
    // Whether the file has other bytes than the document's last reading or writing left in it, and
    // than those to be ignored. Never where it is missing or cannot be read.
    bool isFileChanged() const;
    // Whether saving would overwrite what is not the document's own: ignored changes too.
    bool hasForeignFile() const;
    bool isFileMissing() const;
    // Of the file as it is now the user knows.
    void ignoreFileChange();
    // Writes the text. Without keepAsBuffer the document becomes that file's, and a buffer's own
    // file is deleted. A failure is reported to the user, gives false, and leaves the old file's
    // document with changes. False for an empty path. Where the file's encoding does not have all
    // characters, the user is asked whether to change it.
    bool write(const QString &path, bool keepAsBuffer);
    // Writes the changes of a buffer without a box; returns the reason of a failure, or an empty
    // text.
    QString saveBufferQuietly();
    // Takes the first free name in the buffer directory; when there are too many, the last.
    void createBufferFile();
    // Nothing for a file that is the user's.
    void removeBufferFile();
    // Whether other buffers, for want of names, have the same file.
    bool mayShareFile() const;
    // For a document that the user has closed, and that is deleted soon: nothing of it is left but
    // a file of the user's, and in a demo the journal of its changes.
    void retire();
    // The journal that was left; empty for none.
    QString keptJournal() const { return m_keptJournal; }
    // By the file's suffix.
    void updateLanguage();

    // Has the journal hold the text as it is now, before something that may take the program away.
    // False when it does not.
    bool flushJournal();
    // The same for changes of which nothing else will be left. Tries again what has failed.
    bool keepChanges();
    // Gives up the text that is not saved: it will not come back.
    void discardJournal();
    // Makes a view that awaits a file the document of one that is missing or cannot be read.
    void becomeDocument(const JournalHeader &header, int bufferIndex);
    // The same for a buffer of which only a journal may have the text, as its file was another's
    // as well; else false.
    bool becomeSharing(const QFileInfo &info, int bufferIndex);
    // Puts the text that a session left in the place of the document's, by an edit that can be
    // undone, and takes over its journal, so that at any moment there is one; an empty path for
    // none. The text is then unsaved.
    void recover(const JournalContents &journal, const QString &journalPath);

    // A view that awaits a file has no editor, which is costly, and what it loads waits as mere
    // bytes, until the view is shown or somebody asks for the editor here.
    EdCodeEdit *codeEdit() const;
    // Null where codeEdit() would have to make it or give it what waits: these bytes of the file.
    const EdCodeEdit *knownCodeEdit() const { return m_waiting ? nullptr : m_codeEdit; }
    QByteArray waitingBytes() const { return m_waiting ? m_waiting->bytes : QByteArray(); }
    QFileInfo fileInfo() const { return m_fileInfo; }
    // 0 or more for a buffer, -1 for a file.
    int bufferIndex() const { return m_bufferIndex; }
    bool isBuffer() const { return m_isBuffer; }
    bool isModified() const { return m_modified; }
    // Tells the document from all others, in later sessions too if it is handed on.
    QString documentId() const { return m_documentId; }
    void setDocumentId(const QString &id) { m_documentId = id; }
    int language() const;
    int cursorPosition() const;
    int scrollValue() const;
    // Brings caret and scroll bar there, and then the caret into view.
    void setPlace(int cursorPosition, int scrollValue);
    // The whole text, lines ending in "\n".
    QString text() const;
    // The selection as the text widget reports it: U+2029 between lines. Empty without one.
    QString selectedText() const;
    // The text of the caret's line.
    QString lineText() const;

signals:
    void fileRenamed(const QString &oldPath, const QString &newPath);
    void modificationChanged(bool changed);
    void gainedFocus();
    void overwriteModeChanged();
    void cursorStatusChanged();
    void textChanged();
    void findReplaceMessageChanged(const QString &message);
    void moveToOtherViewSelected();
    void quickHelpSelected(const QString &text, bool ignoreWhenHidden);
    void fileDropped(const QString &path);
    void previousTabSelected();
    void nextTabSelected();
    void commandDocumentationSelected(const QString &command, bool python);
    void longLineReached();
    void completionSlow();
    // The text is not safe from the end of the program for now.
    void journalFailed(const QString &reason);

public slots:
    // Follows the document's own flag, which forceModified() sets.
    void setModified(bool modified = true);
    void forceModified();
    // Removes all text as one step that can be undone.
    void clearText();
    void inFocus();
    void setCodeEditFocus();
    // To the document's file, a buffer to its own; nothing without changes.
    void save();
    // Makes the document that file's.
    void saveAs(const QString &path);
    // Renames the file on disk, inside its directory, and with it the language; changes stay
    // unsaved. A name that is taken, or none, is reported to the user; after other failures nothing
    // is changed. Buffers are left alone.
    void rename(const QString &newName);
    // The file was renamed, or moved, by somebody else.
    void followFile(const QString &newPath);
    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void selectAll();
    void updateTabsAndSpaces();
    void updateFontAndColors();
    void updateHiddenCharacters();
    void convertTabsToSpaces();
    // Takes the flag of all editors to this one.
    void updateOverwriteMode();
    void onOverwriteModeChange();
    void onCursorStatusChange();
    void onTextChange();
    // Positions in the document; those outside become the nearest inside.
    void setCursorPosition(int position);
    void setCursorSelection(int position, int anchor);
    // Puts the text in the place of the selection, or at the caret.
    void replace(const QString &text);
    // The options are those of FindRequest.
    void findReplace(const QString &findText, const QString &replaceText, int options);
    void onFindReplaceMessageChange(const QString &message);
    void moveToOtherView();
    void quickHelp(const QString &text, bool ignoreWhenHidden);
    void onFileDrop(const QString &path);
    void previousTab();
    void nextTab();
    // Moves the caret to a line of the document, counted from 1, and that to the middle of the
    // view.
    void goToLine(int line);

protected:
    void showEvent(QShowEvent *event) override;

private slots:
    void showCaret();

private:
    explicit EdCodeView(QWidget *parent);
    struct Waiting
    {
        QByteArray bytes; // of the file
        int cursorPosition = 0;
        int scrollValue = 0;
    };

    void createCodeEdit();
    void connectCodeEdit();
    void giveText();
    void showCaretSoon();
    void replaceText(const QString &text);
    void noteNewText(const QString &text);
    bool isBufferFile(const QString &path) const;
    bool isOpen(const QString &path) const;
    QString read(const QString &path, QByteArray *bytes);
    void noteOwnFile(const Fingerprint &fingerprint);
    QString decoded(const QByteArray &bytes);
    bool isRead(const QFileInfo &info, const QString &reason);
    LineChange changeText(const QString &text);
    TextFile contents() const;
    TextFile bufferContents() const;
    bool mayBeEncoded(TextFile *file);
    void finishWriting(const Fingerprint &fingerprint);
    void followChanges();
    void tryJournalAgain();
    void beginJournal(const std::shared_ptr<JournalFolder> &folder, const QString &path);
    JournalHeader journalHeader() const;
    void takeAfter(const JournalHeader &header);
    void giveLines(const QString &text);

    int m_bufferIndex;
    int m_editorLanguage;
    // Null until codeEdit() is asked for it.
    EdCodeEdit *m_codeEdit = nullptr;
    std::optional<Waiting> m_waiting; // what the editor has not been given yet
    bool m_mustShowCaret = false;     // in the place that it was given, once the size is known
    QFileInfo m_fileInfo;
    bool m_modified = false;
    bool m_isBuffer = true;
    bool m_isRetired = false;                     // its name is free
    QString m_documentId;                         // never that of another document
    TextEncoding m_encoding = TextEncoding::Utf8; // as the text was decoded, or the user chose
    LineEnds m_lineEnds;
    std::optional<Fingerprint> m_seen;      // the file's; nothing while it has none of its own
    std::optional<Fingerprint> m_ignored;   // what others have left in it, if the user keeps on
    QElapsedTimer m_sinceNoJournal;         // since there was no folder for one
    std::unique_ptr<TextJournal> m_journal; // null while everything is saved
    QString m_keptJournal;
};
