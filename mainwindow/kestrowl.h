// SPDX-License-Identifier: MIT
#pragma once

#include "mainwindow/actions.h"
#include "mainwindow/docks.h"
#include "mainwindow/statuslabels.h"

#include <QByteArray>
#include <QList>
#include <QMainWindow>
#include <QString>

class EdBufferView;
class EdCentralWidget;
class EdCodeView;
class EdExplorerView;
class EdOpenDocumentView;
class EdOutlineView;
class EdOutputView;
class EdQuickHelpView;
class QModelIndex;
class QShortcut;
class QToolBar;

// The editor's one window. It turns the user's commands into calls on the active document or into
// signals; whoever owns the window carries those to Maya.
class Kestrowl : public QMainWindow
{
    Q_OBJECT

public:
    Kestrowl(const QString &userScriptDirectory, const QString &userPreferencesDirectory,
             QWidget *parent = nullptr);
    ~Kestrowl() override;

    QAction *action(Action id) const { return m_actions[id]; }
    EdCentralWidget *central() const { return m_central; }
    EdOutputView *outputView() const { return m_output; }
    QDockWidget *dock(Dock dock) const { return m_docks[dock]; }

    // The settings file; writing it asks nothing.
    QString settingsPath() const;
    void writeSettings();

public slots:
    void show();
    void about();
    void showLicenseDialog();

    // Files and buffers. A buffer type of 0 makes a MEL buffer, 1 a Python buffer, others ask.
    void newBuffer(int bufferType = -1);
    void newMelBuffer();
    void newPythonBuffer();
    void open();
    void open(const QModelIndex &index);
    void open(const QString &path);
    void closeTab();
    void closeAllTabs();
    void closeAllTabsButActive();
    void closeEditor();
    void save();
    void saveAs();
    void saveAll();
    void saveSettings();
    void saveScriptToShelf();
    void sourceScript();
    void setTitleBufferName(const QString &bufferName);

    // Editing: the history when it has the focus, else the document.
    void cut();
    void copy();
    void paste();
    void showGotoLineDialog();
    void showFindReplaceDialog();
    void replace(const QString &text);
    void clearOutput();
    void clearEditor();

    // Maya's switches. With updateWindowOnly, the window follows Maya and does not tell it.
    void echoAllCommands(bool enable, bool updateWindowOnly = false);
    void echoAllCommandsToggle();
    void lineNumbersInErrors(bool enable, bool updateWindowOnly = false);
    void showStackTrace(bool enable, bool updateWindowOnly = false);
    void suppressStackWindow(bool enable, bool updateWindowOnly = false);
    void overrideScriptEditorButton(bool enable);

    void execute();
    void execute(const QString &script);
    void executeLine();
    void executeAll();

    // What is seen.
    void showTabsAndSpaces(bool enable);
    void showTabsAndSpacesToggle();
    void showEndOfLine(bool enable);
    void wordWrap(bool enable);
    void editorVisibleChange(bool visible);
    void setEditorVisible(bool visible);
    void outputViewVisibleChange(bool visible);
    void showOutput();
    void showEditor();
    void showBoth();
    void showAll();
    void setToolbarVisible(bool visible = true);
    void dockToggle(bool visible);
    void dockLocationChange();
    void updateVisibleDocks();
    void saveDockWidgetGeometry();

    void appendOutputText(const QString &text);
    void setStatusText(const QString &text);
    void updateCursorStatus(int line, int column, int sel);
    void updateInsertOverwriteStatus();

    void melCommandReference();
    void pythonCommandReference();
    void nodeAndAttributeReference();
    void updateAndShowQuickHelp(const QString &text, bool ignoreWhenHidden);
    void insertQuickHelpFlag(const QString &flag);

    void showPreferencesDialog();
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

    // For the code that changes Maya's interface and opens its documentation.
    void scriptToShelfRequested(const QString &label, const QString &script, bool isMel);
    void commandHelpRequested(const QString &command, bool python);
    void showHelpRequested(const QString &argument);
    void scriptEditorOverrideChanged(bool enable);

protected:
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    DockArray<QWidget *> createDockContents();
    void connectCentralWidget();
    void connectDocuments();
    void connectBuffers();
    void connectProject();
    void connectOtherDocks();
    void readSettings();
    void applyToggles();
    void saveBeforeExecuting();
    void setOutputVisible(bool visible);
    void hideFloatingDocks();
    void showFloatingDocks();
    EdCodeView *currentView() const;

    QString m_scriptDirectory;
    QString m_preferencesDirectory;
    QString m_lastOpenDirectory;
    QString m_lastSourceDirectory;

    ActionSet m_actions;
    QList<QToolBar *> m_toolBars;
    QList<QShortcut *> m_shortcuts;
    StatusLabels m_statusLabels;

    EdCentralWidget *m_central;
    EdExplorerView *m_explorer;
    EdOpenDocumentView *m_documents;
    EdBufferView *m_buffers;
    EdOutputView *m_output;
    EdOutlineView *m_outline;
    EdQuickHelpView *m_quickHelp;

    DockArray<QDockWidget *> m_docks;
    DockArray<QByteArray> m_dockGeometry;
    int m_visibleDocks = 0;
    QList<QDockWidget *> m_docksPutAway; // floating ones, while the window is hidden
    bool m_ignoresDocks = false;         // while they are hidden and shown with it
};
