// SPDX-License-Identifier: MIT
#pragma once

#include "mainwindow/actions.h"
#include "mainwindow/centralroom.h"
#include "mainwindow/docks.h"
#include "mainwindow/statuslabels.h"
#include "mainwindow/windowsettings.h"

#include <QByteArray>
#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <QString>

#include <memory>

class EdBufferView;
class EdCentralWidget;
class EdCodeView;
class EdExplorerView;
class EdOpenDocumentView;
class EdOutlineView;
class EdOutputView;
class EdQuickHelpView;
class FindSession;
class JournalFolder;
class QModelIndex;
class QShortcut;
class QTextDocument;
class QToolBar;
class QToolButton;
enum class SaveResult;
struct WorkspaceState;

// The editor's one window. It turns the user's commands into calls on the active document or into
// signals; whoever owns the window carries those to Maya, of which the window itself knows nothing.
// Actions, menus, tool bars, shortcuts and docks are tables; what is here is what they call.
// Closing it only hides it, and it lives until the plug-in is unloaded. For the GUI thread.
class Kestrowl : public QMainWindow
{
    Q_OBJECT

public:
    // Reads the settings file. The directories are those of Maya's user, with or without a
    // separator at the end; for an empty one it is the home directory.
    Kestrowl(const QString &userScriptDirectory, const QString &userPreferencesDirectory,
             QWidget *parent = nullptr);
    ~Kestrowl() override;

    // Never null; the window owns them all.
    QAction *action(Action id) const { return m_actions[id]; }
    EdCentralWidget *central() const { return m_central; }
    EdOutputView *outputView() const { return m_output; }
    QDockWidget *dock(Dock dock) const { return m_docks[dock]; }

    // The settings file and that of the colours, in the user's preference directory. Writing saves
    // the buffers too; it asks nothing, and returns what the user should be told, which is nothing
    // but failures.
    QString settingsPath() const;
    QString colorsPath() const;
    QString writeSettings();

public slots:
    // Brings the window to the front as well.
    void show();
    void about();
    void showLicenseDialog();
    // Keeps the license over restarts.
    void storeLicense(const QString &text);
    // Shows whether this is a demo, which it may have become.
    void updateDemoNotice();
    // Tells where changes are that a demo could not save before the document was closed.
    void explainClosed(EdCodeView *view);

    // Files and buffers. A buffer type of 0 makes a MEL buffer, 1 a Python buffer, others ask.
    void newBuffer(int bufferType = -1);
    void newMelBuffer();
    void newPythonBuffer();
    // Asks for a file.
    void open();
    // A file of the project tree; nothing for a directory.
    void open(const QModelIndex &index);
    void open(const QString &path);
    void closeTab();
    void closeAllTabs();
    void closeAllTabsButActive();
    // Hides the window.
    void closeEditor();
    void save();
    void saveAs();
    // Files and buffers.
    void saveAll();
    // Asks whether documents shall be saved with the settings, if any has changes.
    void saveSettings();
    // The selection or else the whole text, under a label that is asked for; not plain text.
    void saveScriptToShelf();
    // Asks for a MEL file.
    void sourceScript();
    // Empty: only the program's name is left in the title.
    void setTitleBufferName(const QString &bufferName);
    // Lets lists and outline go with the active document.
    void followDocument();

    // Editing: the history when it has the focus, which can only be copied, else the document.
    void cut();
    void copy();
    void paste();
    void showGotoLineDialog();
    void showFindReplaceDialog();
    // What was looked for last, without the dialog.
    void findNext();
    void findPrevious();
    // The options are those of FindRequest.
    void findReplace(const QString &findText, const QString &replaceText, int options);
    void replace(const QString &text);
    void clearOutput();
    void clearEditor();

    // Maya's switches. With updateWindowOnly, the window follows Maya and does not tell it: what is
    // set silently sends nothing back. Toggle is for the buttons of the tool bar, which have no
    // state.
    void echoAllCommands(bool enable, bool updateWindowOnly = false);
    void echoAllCommandsToggle();
    void lineNumbersInErrors(bool enable, bool updateWindowOnly = false);
    void showStackTrace(bool enable, bool updateWindowOnly = false);
    void suppressStackWindow(bool enable, bool updateWindowOnly = false);
    void overrideScriptEditorButton(bool enable);

    // Executing hands a text to Maya, in the language of the document; plain text is not run. The
    // first takes the selection, or everything without one.
    void execute();
    // An empty script runs nothing.
    void execute(const QString &script);
    // The caret's line, trimmed.
    void executeLine();
    void executeAll();

    // What is seen.
    void showTabsAndSpaces(bool enable);
    void showTabsAndSpacesToggle();
    void showEndOfLine(bool enable);
    void wordWrap(bool enable);
    void editorVisibleChange(bool visible);
    // These keep either the editor or the history in sight.
    void setEditorVisible(bool visible);
    void outputViewVisibleChange(bool visible);
    void showOutput();
    void showEditor();
    void showBoth();
    void showAll();
    void setToolbarVisible(bool visible = true);
    // Gives the keyboard to the text or dock beside the one that has it.
    void focusNextPart();
    void focusPreviousPart();
    // Slots of the docks.
    void dockToggle(bool visible);
    void dockLocationChange();
    void updateVisibleDocks();
    void saveDockWidgetGeometry();

    void appendOutputText(const QString &text);
    void setStatusText(const QString &text);
    // When it is still that one.
    void clearStatusText(const QString &text);
    // Column and selection in UTF-16 units, 0-based; the line is not shown.
    void updateCursorStatus(int line, int column, int sel);
    void updateInsertOverwriteStatus();
    void updateSelectionActions();
    void explainLongLine();
    void explainSlowCompletion();
    // Keeps the list of open documents, in case Maya crashes before the settings are written.
    void rememberTabs();
    void warnOfJournal(const QString &reason);

    void melCommandReference();
    void pythonCommandReference();
    void nodeAndAttributeReference();
    // Shows help on the command that the text names, or else on that at the caret. Brings Quick
    // Help to the front; when asked for what is shown, the keyboard too. With ignoreWhenHidden it
    // shows commands that Maya knows where it is seen, and changes nothing else.
    void updateAndShowQuickHelp(const QString &text, bool ignoreWhenHidden);
    // At the caret, as the document's language has it.
    void insertQuickHelpFlag(const QString &flag);
    void openQuickHelpPage(const QString &command);
    void openSelectedPage(const QString &selection, bool python);
    void focusEditor();

    void showPreferencesDialog();
    // Takes changed preferences to whatever shows them.
    void updatePreferences();
    void updatePreferencesAndWrite();

signals:
    // For the code that runs scripts in Maya.
    void melExecuted(const QString &code);
    void pythonExecuted(const QString &code);
    void sourceScriptSelected(const QString &path);
    void echoAllCommandsEnabled(bool enable);
    void lineNumbersInErrorsEnabled(bool enable);
    void showStackTraceEnabled(bool enable);
    void suppressStackWindowEnabled(bool enable);
    // By the dialog; those of the settings file are in force once the window is made.
    void preferencesApplied();

    // For the code that changes Maya's interface and opens its documentation.
    void scriptToShelfRequested(const QString &label, const QString &script, bool isMel);
    void commandHelpRequested(const QString &command, bool python);
    void showHelpRequested(const QString &argument);
    void scriptEditorOverrideChanged(bool enable);

protected:
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    // Keys that should have been a shortcut and were not, or are one of an action that is disabled.
    void keyPressEvent(QKeyEvent *event) override;

private:
    DockArray<QWidget *> createDockContents();
    void connectCentralWidget();
    void connectDocuments();
    void connectBuffers();
    void connectProject();
    void connectOutline();
    void connectQuickHelp();
    void connectOtherDocks();
    QString makeBufferDirectory();
    void restoreDocuments(const WorkspaceState &stored);
    void readSettings();
    void readLicense();
    // Returns the reason of a failure, else an empty text.
    QString storeSettings(const WorkspaceState &documents);
    void applyWindowSettings(const WindowSettings &stored);
    void restoreDocks(const WindowSettings &stored);
    void arrangeDocks(const WindowSettings &stored);
    void applyToggles();
    WindowSettings windowSettings();
    Panes shownPanes() const;
    void warnOf(const QString &problem);
    void updateBars();
    // The user may cancel it, and with it the execution.
    SaveResult saveBeforeExecuting();
    void saveAndExecute(QString (*scriptOf)(const EdCodeView &view));
    void run(const QString &script);
    void setOutputVisible(bool visible);
    void listenTo(QTextDocument *document);
    QList<QWidget *> keyboardParts() const;
    void focusPart(int step);
    void hideFloatingDocks();
    void showFloatingDocks();
    QString quickHelpCommand(const QString &text) const;
    void showQuickHelp();
    // Null when no document is open.
    EdCodeView *currentView() const;

    QString m_scriptDirectory; // absolute
    QString m_preferencesDirectory;
    std::shared_ptr<JournalFolder> m_journals;
    bool m_settingsHaveTabs = false; // all that the journals' folder tells of them

    ActionSet m_actions;
    QList<QToolBar *> m_toolBars;
    QList<QShortcut *> m_shortcuts;
    StatusLabels m_statusLabels;
    QToolButton *m_demoNotice = nullptr; // null until there was a demo

    // All are children of the window or of its docks, and live as long as it.
    EdCentralWidget *m_central;
    EdExplorerView *m_explorer;
    EdOpenDocumentView *m_documents;
    EdBufferView *m_buffers;
    EdOutputView *m_output;
    EdOutlineView *m_outline;
    EdQuickHelpView *m_quickHelp;
    FindSession *m_find;

    QPointer<QTextDocument> m_followed; // whose edits the outline hears of

    DockArray<QDockWidget *> m_docks;
    CentralRoom m_centralRoom;
    DockArray<QByteArray> m_dockGeometry; // as of the last change of a dock's place
    int m_visibleDocks = 0;               // with those put away and formerDockFlag
    int m_docksPutAway = 0;               // floating ones, while the window is hidden
    QByteArray m_hiddenState;             // saveState() before they were; else empty
    bool m_ignoresDocks = false;          // while they are hidden, shown and restored
    bool m_isShown = false;               // with its docks: not while they are becoming visible
    bool m_showsToolBars = true;          // the preferences as they were applied last
    bool m_showsStatusBar = true;
    QString m_license; // as it was read
};
