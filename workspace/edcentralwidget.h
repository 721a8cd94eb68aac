// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/tabentry.h"
#include "workspace/workspacestate.h"

#include <QFileInfo>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

class EdCodeView;
class QLabel;

// The centre of the window: the open document, or a hint when there is none. The window talks to
// documents only through this widget. It owns the document's view; opening another one replaces it,
// once the user has saved or given up its changes.
class EdCentralWidget : public QWidget
{
    Q_OBJECT

public:
    explicit EdCentralWidget(QWidget *parent = nullptr);

    // The open document; null when there is none.
    EdCodeView *currentCodeView() const { return m_view; }
    // Whether there is text that is in no file yet.
    bool hasUnsavedContent() const;

    // What is open, and opens it again: of several documents the one that was current. The others,
    // and files that are gone for now, stay in the list until the user opens them; damaged entries
    // are dropped. restore() shows no box but returns what there is to say.
    WorkspaceState state() const;
    QStringList restore(const WorkspaceState &state);

public slots:
    void newBuffer();
    void newMelBuffer();
    void newPythonBuffer();
    // A file that is open already gets the focus; one that cannot be read is reported to the user
    // and leaves everything as it was.
    void openFile(const QString &path);

    // To the document's file; a buffer stays one.
    void save();
    // Nothing for an empty path.
    void saveAs(const QString &path);
    void saveAll();
    // Also writes a buffer without changes whose file is gone.
    // Asks nothing and shows nothing; returns the reason of a failure.
    QString saveBuffers();
    // Asks for the new name. Buffers change their label, files their name on disk.
    void rename();
    // These two do nothing unless the open document is the one meant.
    void renameBuffer(int bufferIndex);
    void renameFile(const QString &path);
    // Asks before changes are lost.
    void reloadFromDisk();

    // Editing commands for the open document; nothing when there is none.
    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void selectAll();
    void clearText();
    void convertTabsToSpaces();
    // Puts the text in the place of the selection, or at the caret.
    void replace(const QString &text);

    // Close asks about changes, and does nothing when the user cancels. A closed buffer's file is
    // deleted.
    void closeActive();
    void closeAll();
    void closeAllButCurrent();
    void closeBuffer(int bufferIndex);
    void closeFile(const QString &path);
    void focusBuffer(int bufferIndex);

    // Take changed preferences to the open document. Hidden characters include wrapping.
    void updateTabsAndSpaces();
    void updateFontAndColors();
    void updateHiddenCharacters();
    void updateDiagnostics() { activeViewChange(); }

    // Paths are absolute. A document that saveAs() makes another file's is reported closed and
    // opened.
signals:
    void fileDropped(const QString &path);
    void quickHelpSelected(const QString &text, bool ignoreWhenHidden);
    void commandDocumentationSelected(const QString &command, bool python);
    // The caret has come to a line that goes without colours and marks; once for each document.
    void longLineReached();
    void fileOpened(const QString &path);
    void fileClosed(const QString &path);
    void fileRenamed(const QString &oldPath, const QString &newPath);
    // A double click where there is no document.
    void createNewBufferTriggered();
    void bufferCreated(int id, const QString &name, const QFileInfo &info);
    void bufferDeleted(int id);
    void bufferRenamed(int id, const QString &newName);
    // The window shall save, or ask for a name and save.
    void tabSaveSelected();
    void tabSaveAsSelected();
    void overwriteModeChanged();
    // Once for each document; it is tried again after the next pause in typing.
    void autosaveFailed(const QString &message);
    // A buffer was written after a pause in typing.
    void autosaved();
    // Line and column are 0-based, the selection in UTF-16 units; all 0 without a document.
    void cursorStatusChanged(int line, int column, int sel);
    // A buffer's label, or a file's path with "*" behind it while there are changes; empty without
    // a document.
    void activeBufferNameChanged(const QString &name);

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private slots:
    void onTextChange();
    // Parses the open document at once and marks what was found.
    void activeViewChange();
    // Writes a buffer with changes.
    void autosave();
    void forgetEntry();
    void reportCursor();
    void reportName();

private:
    void addBuffer(int language, const QString &label);
    int keepEntries(const WorkspaceState &state);
    QString openEntry(const TabEntry &entry);
    void showView(EdCodeView *view);
    void retireView();
    void connectView();
    template <typename Parser>
    void showDiagnosticsOf(Parser parser);
    bool isShown(const QFileInfo &info) const;
    bool losesText() const;
    bool mayBeReplaced();
    bool mayBeClosed();
    bool confirmDelete();
    QString bufferProblem(const QString &reason) const;
    bool isCurrentFile(const QString &path) const;
    bool isCurrentBuffer(int bufferIndex) const;
    QString documentName() const;

    EdCodeView *m_view = nullptr;
    QTimer m_parseTimer;              // runs until a pause after the last change of the text
    QList<TabEntry> m_waitingEntries; // of the restored list, never shown since
    bool m_saysAutosaveFails = true;
    QLabel *m_hint;            // seen while there is no document
    QString m_bufferLabel;     // of the open buffer; not cleared for files, which do not look at it
    int m_nextBufferIndex = 0; // never used twice, so that lists cannot mix buffers up
};
