// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/recovery.h"
#include "workspace/workspacescripts.h"
#include "workspace/workspacestate.h"

#include <QByteArray>
#include <QFileInfo>
#include <QHash>
#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

class EdCodeTabWidget;
class EdCodeView;
class FileWatch;
class JournalFolder;
class MelParser;
class PythonParser;
class QSplitter;
class RecoveryBar;

// Failed: a file could not be written, which the user was told. Cancelled: by the user, who would
// rather not overwrite one.
enum class SaveResult { Done, Failed, Cancelled };

// The centre of the window: two panes of tabs, of which one is active: that which had the focus
// last. The window talks to documents only through this widget, which hands out buffer indices,
// starts the parsing after pauses in typing, and knows when other programs change the open files.
// Commands without a document in their name are for the active pane's current one, and do nothing
// when there is none.
class EdCentralWidget : public QWidget, private DocumentHost
{
    Q_OBJECT

public:
    explicit EdCentralWidget(QWidget *parent = nullptr);
    ~EdCentralWidget() override;

    enum { PaneCount = 2 };

    // Null when there is none.
    EdCodeView *currentCodeView() const;
    // By its id; both panes live as long as this widget.
    EdCodeTabWidget *pane(int id) const { return m_panes.at(id); }
    int activePane() const { return m_activeView; }
    // Of both panes, in the order of their tabs.
    QList<EdCodeView *> codeViews() const override;
    // Whether there is text that is in no file yet.
    bool hasUnsavedContent() const;

    // What is open, and opens it again. Files in folders that are gone for now stay in the list;
    // damaged entries are dropped. restore() shows no box but returns what there is to say.
    WorkspaceState state() const;
    QStringList restore(const WorkspaceState &state);

    // How the panes share the room, as QSplitter tells it; other bytes change nothing.
    QByteArray splitterState() const;
    void restoreSplitter(const QByteArray &state);

    // Gives the documents back what sessions that ended had not saved, which the user is told of
    // above the panes; returns what else there is to say. After restore().
    QStringList recover(const JournalFolder &journals);

    // Has unsaved texts safe at once: before whatever may take long, or crash.
    void flushJournals();
    // Writes the changes of all buffers, and those without changes whose file is gone. Asks nothing
    // and shows nothing; returns the reasons of failures.
    QStringList saveBuffersQuietly();

    // False, once the user was told, where the license allows no more.
    bool mayOpenAnother();

signals:
    // Paths are absolute. Both also for a document that saveAs() makes another file's.
    void fileDropped(const QString &path);
    void fileOpened(const QString &path);
    void fileClosed(const QString &path);
    void fileRenamed(const QString &oldPath, const QString &newPath);
    void createNewBufferTriggered();
    void bufferCreated(int id, const QString &path, const QFileInfo &info);
    void bufferDeleted(int id);
    void bufferRenamed(int id, const QString &newName);
    // The window shall save, or ask for a name and save.
    void tabSaveSelected();
    void tabSaveAsSelected();
    void overwriteModeChanged();
    // Line and column are 0-based, the selection in UTF-16 units; all 0 without a document.
    void cursorStatusChanged(int line, int column, int sel);
    void findReplaceMessageChanged(const QString &message);
    // What was found in the current document, or that it is plain text or there is none.
    void melScriptUpdated(const MelParser &parser);
    void pythonScriptUpdated(const PythonParser &parser);
    void clearScriptDetails();
    void quickHelpSelected(const QString &text, bool ignoreWhenHidden);
    // A buffer's label, or a file's path; empty without a document.
    void activeBufferNameChanged(const QString &text);
    void commandDocumentationSelected(const QString &command, bool python);
    // What state() tells of tabs has changed; once for several changes that follow each other.
    void tabsChanged();
    // The text of a document is not safe from the end of the program for now.
    void journalFailed(const QString &reason);
    // The caret has come to a line that goes without colours and marks; once for each document.
    void longLineReached();
    // Completions of a document come only when asked for; once for each.
    void completionSlow();

public slots:
    void newBuffer();
    void newMelBuffer();
    void newPythonBuffer();
    // A file that is open already, in whichever pane and under whatever name, is only shown; one
    // that cannot be read is reported to the user and leaves everything as it was.
    void openFile(const QString &path);
    void openFile(const QFileInfo &fileInfo);

    // To the document's file; a buffer stays one. What another program has done to the file
    // meanwhile is asked about first.
    void save();
    // Nothing for an empty path. A document that is open under that name already is closed first,
    // which may ask and be cancelled.
    void saveAs(const QString &path);
    SaveResult saveAll();
    void saveBuffers();

    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void selectAll();
    // Asks for the new name. Buffers change their label, files their name on disk.
    void rename();
    void renameBuffer(int bufferIndex);
    void renameFile(const QString &path);
    // Asks before changes are lost.
    void reloadFromDisk();
    void clearText();

    // Closing asks about changes, and does nothing when the user cancels. A closed buffer's file is
    // deleted. The last form keeps that pane's current tab.
    void closeActive();
    void closeAll();
    void closeAllButCurrent();
    void closeAllButCurrent(int tabWidgetId);
    void currentTabSave();
    void currentTabSaveAs();

    // Take changed preferences to the panes and their documents. Hidden characters include
    // wrapping.
    void setTabBarVisible(bool visible);
    void setTabsMovable(bool movable);
    void setTabsClosable(bool closable);
    void setTabsDoubleClickToClose(bool close);
    void updateTabsAndSpaces();

    // A tab index of -1: the pane has lost its last tab.
    void moveToOtherView(int id, int tabIndex);
    // A tab of pane `id` was dragged out of it, and dropped unless updateCursorOnly.
    void tabMovedToNewPosition(int id, const QPoint &globalPos, bool updateCursorOnly);
    void setActiveTabWidgetIndex(int id);

    // What the panes report.
    void onFileOpened(const QString &path);
    void onFileClosed(const QString &path);
    void onFileRenamed(const QString &oldPath, const QString &newPath);
    void onCreateNewBuffer();
    void onBufferCreated(int id, const QString &name, const QFileInfo &info);
    void onBufferDeleted(int id);
    void onBufferRenamed(int id, const QString &newName);
    void onTextChange();
    void onTabChange();

    // Nothing for documents that are not open.
    void focusBuffer(int bufferIndex);
    void closeBuffer(int bufferIndex);
    void closeFile(const QString &path);

    void updateFontAndColors();
    void updateHiddenCharacters();
    void convertTabsToSpaces();
    void onOverwriteModeChange();
    void onCursorStatusChange();
    // Positions in the document; those outside become the nearest inside.
    void setCursorSelection(int pos, int anchor, bool focus);
    void setCursorSelection(int pos, int anchor);
    // In the current document; the options are those of FindRequest.
    void findReplace(const QString &findText, const QString &replaceText, int options);
    // Puts the text in the place of the selection, or at the caret.
    void replace(const QString &text);
    void onFindReplaceMessageChange(const QString &message);
    void quickHelp(const QString &text, bool ignoreWhenHidden);
    // Parses the current document, unless that is done, and tells what was found.
    void activeViewChange();

    // Another program may have changed the file; asked about at the next check.
    void externalFileChange(const QString &path);
    // Asks what to do about files that other programs have changed or removed.
    void checkForFileChanges();
    // Deletes documents that were closed.
    void tabCleanup();
    // A file, or a folder with all that it holds, was renamed elsewhere in the program.
    void followRenamed(const QString &oldPath, const QString &newPath);
    void onFileDrop(const QString &path, int tabWidgetId);
    // Parses what both panes show, unless that is done.
    void updateDiagnostics();

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    // Draws the hint that is seen while there is no document.
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private slots:
    void onCodeViewInserted(EdCodeView *view);
    void showDocument(EdCodeView *view);
    void closeDocument(EdCodeView *view);
    void focusCurrent();
    void askBeforeSaving(EdCodeView *view, bool *maySave);
    void noteKeptChanges(EdCodeView *view);
    // For the diagnostics of its document, which is seen too.
    void parseOtherPane();

private:
    // A tab of a pane, or none.
    struct Place
    {
        EdCodeTabWidget *pane = nullptr;
        int tab = -1;
        explicit operator bool() const { return pane != nullptr; }
    };

    // What is not an id counts as that of the first pane.
    static int paneId(int id) { return id == 1 ? 1 : 0; }
    EdCodeTabWidget *active() const { return m_panes.at(m_activeView); }
    void makeActive(int id);
    void connectPane(EdCodeTabWidget *pane);
    void activate(int id);

    Place placeOf(const EdCodeView *view) const;
    Place placeOfBuffer(int bufferIndex) const;
    // By whatever name: over links too.
    Place placeOfFile(const QFileInfo &info) const;
    void showPlace(const Place &place);
    void renameAt(const Place &place);
    void addBuffer(int language);
    EdCodeView *otherDocumentOf(const QString &path) const;
    bool mayReplace(const QPointer<EdCodeView> &view);
    void explainUnsavedFiles();
    void reportFailedSaveAs(const EdCodeView &view, const QString &target);
    void closeTabsBut(EdCodeView *keptView);
    bool mayBeClosed(const Place &place);

    void noteMissingFiles();
    void closeAt(const Place &place);

    void reload(const EdCodeView *view);
    bool mayOverwrite(const QPointer<EdCodeView> &view);
    bool askToOverwrite(const QPointer<EdCodeView> &view);
    void askAboutChanged(const QString &path);
    void askAboutMissing(const QString &path);

    void showUnparsed();
    void showTabChange();
    void reportName();
    class OpenFiles;
    QString restoreEntry(const QString &text, const QString &documentId, bool hasPanes,
                         OpenFiles *files, QList<EdCodeView *> *restored);
    void forgetEntry(const QString &path);

    int newBufferIndex() override { return m_nextBufferIndex++; }
    QWidget *documentParent() override { return this; }
    QString nameOf(const EdCodeView &view) const override;
    void addCodeView(EdCodeView *view, const QString &label) override;
    void showRecovered(const QList<RecoveredDocument> &documents);
    void giveBackChanges(EdCodeView *view);
    static void showStored(EdCodeTabWidget *pane, const QList<EdCodeView *> &restored, int index);

    const WorkspaceScripts m_scripts;
    QSplitter *m_splitter;
    QList<EdCodeTabWidget *> m_panes;     // by id
    QTimer m_parseTimer;                  // runs until a pause after the last change of the text
    QTimer m_otherPaneTimer;              // runs until parseOtherPane()
    QTimer m_tabsTimer;                   // runs until tabsChanged()
    RecoveryBar *m_recoveryBar = nullptr; // once there was something to recover
    int m_activeView = 0;                 // the id of a pane
    int m_nextBufferIndex = 0;            // never used twice, so that lists cannot mix buffers up
    FileWatch *m_watch;
    QStringList m_changedFiles; // reported and not asked about yet
    QStringList m_missingFiles;
    QHash<QString, QString> m_keptJournals; // of files that a demo has closed, by path
    QStringList m_waitingEntries;           // of the restored list, whose folders are not there
    bool m_ignoresTabs = false;             // while many change at once
};
