// SPDX-License-Identifier: MIT
#include "mainwindow/kestrowl.h"

#include "analysis/edoutlineview.h"
#include "analysis/edquickhelpview.h"
#include "compat/icon.h"
#include "mainwindow/filenames.h"
#include "mainwindow/menus.h"
#include "mainwindow/programnames.h"
#include "mainwindow/shortcuts.h"
#include "mainwindow/toolbars.h"
#include "mainwindow/visibility.h"
#include "output/edoutputview.h"
#include "preferences/preferences.h"
#include "resources/resources.h"
#include "workspace/edbufferview.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edexplorerview.h"
#include "workspace/edopendocumentview.h"

#include <QDir>
#include <QDockWidget>
#include <QHideEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QShowEvent>
#include <QStatusBar>
#include <QToolBar>

namespace {

// Pixels.
const int initialWidth = 1100;
const int initialHeight = 760;

} // namespace

Kestrowl::Kestrowl(const QString &userScriptDirectory, const QString &userPreferencesDirectory,
                   QWidget *parent)
    : QMainWindow(parent), m_scriptDirectory(QDir(userScriptDirectory).absolutePath()),
      m_preferencesDirectory(userPreferencesDirectory), m_lastOpenDirectory(m_scriptDirectory),
      m_lastSourcePath(m_scriptDirectory), m_central(new EdCentralWidget(this))
{
    // The order matters: icons need resources, docks the View menu, connections both ends, and
    // settings everything that they set.
    initResources();
    setObjectName(QLatin1String("Kestrowl"));
    setWindowIcon(compat::icon(iconPath("corvane")));
    setCentralWidget(m_central);
    setTitleBufferName(QString());
    m_actions.create(this, m_central);
    QMenu *viewMenu = createMenus(this, m_actions);
    m_toolBars = createToolBars(this, m_actions);
    m_shortcuts = createShortcuts(this);
    m_docks = createDocks(this, viewMenu, createDockContents());
    m_statusLabels.create(statusBar());
    connectCentralWidget();
    connectDocuments();
    connectBuffers();
    connectProject();
    connectOtherDocks();
    resize(initialWidth, initialHeight);
    readSettings();
}

// The children outlive this part of the object; what they still report must not reach it.
Kestrowl::~Kestrowl()
{
    for (QObject *child : findChildren<QObject *>())
        child->disconnect(this);
}

DockArray<QWidget *> Kestrowl::createDockContents()
{
    DockArray<QWidget *> contents;
    contents[Dock::Project] = m_explorer = new EdExplorerView(this);
    contents[Dock::Documents] = m_documents = new EdOpenDocumentView(this);
    contents[Dock::Buffers] = m_buffers = new EdBufferView(this);
    contents[Dock::Output] = m_output = new EdOutputView(this);
    contents[Dock::Outline] = m_outline = new EdOutlineView(this);
    contents[Dock::QuickHelp] = m_quickHelp = new EdQuickHelpView(this);
    return contents;
}

// One function for each partner of the window.
void Kestrowl::connectCentralWidget()
{
    connect(m_central, SIGNAL(createNewBufferTriggered()), SLOT(newBuffer()));
    connect(m_central, SIGNAL(fileDropped(QString)), SLOT(open(QString)));
    connect(m_central, SIGNAL(overwriteModeChanged()), SLOT(updateInsertOverwriteStatus()));
    connect(m_central, SIGNAL(cursorStatusChanged(int, int, int)),
            SLOT(updateCursorStatus(int, int, int)));
    connect(m_central, SIGNAL(quickHelpSelected(QString, bool)),
            SLOT(updateAndShowQuickHelp(QString, bool)));
    connect(m_central, SIGNAL(commandDocumentationSelected(QString, bool)),
            SIGNAL(commandHelpRequested(QString, bool)));
    connect(m_central, SIGNAL(tabSaveSelected()), SLOT(save()));
    connect(m_central, SIGNAL(tabSaveAsSelected()), SLOT(saveAs()));
    connect(m_central, SIGNAL(activeBufferNameChanged(QString)), SLOT(setTitleBufferName(QString)));
}

void Kestrowl::connectDocuments()
{
    connect(m_central, SIGNAL(fileOpened(QString)), m_documents, SLOT(addDocument(QString)));
    connect(m_central, SIGNAL(fileClosed(QString)), m_documents, SLOT(removeDocument(QString)));
    connect(m_central, SIGNAL(fileRenamed(QString, QString)), m_documents,
            SLOT(renameDocument(QString, QString)));
    connect(m_documents, SIGNAL(documentSelected(QString)), m_central, SLOT(openFile(QString)));
    connect(m_documents, SIGNAL(removeDocumentSelected(QString)), m_central,
            SLOT(closeFile(QString)));
    connect(m_documents, SIGNAL(renameDocumentSelected(QString)), m_central,
            SLOT(renameFile(QString)));
}

void Kestrowl::connectBuffers()
{
    connect(m_central, SIGNAL(bufferCreated(int, QString, QFileInfo)), m_buffers,
            SLOT(addBuffer(int, QString, QFileInfo)));
    connect(m_central, SIGNAL(bufferDeleted(int)), m_buffers, SLOT(removeBuffer(int)));
    connect(m_central, SIGNAL(bufferRenamed(int, QString)), m_buffers,
            SLOT(renameBuffer(int, QString)));
    connect(m_buffers, SIGNAL(bufferSelected(int)), m_central, SLOT(focusBuffer(int)));
    connect(m_buffers, SIGNAL(removeBufferSelected(int)), m_central, SLOT(closeBuffer(int)));
    connect(m_buffers, SIGNAL(renameBufferSelected(int)), m_central, SLOT(renameBuffer(int)));
}

void Kestrowl::connectProject()
{
    connect(m_explorer, SIGNAL(doubleClicked(QModelIndex)), SLOT(open(QModelIndex)));
    connect(m_explorer, SIGNAL(openSelected(QString)), SLOT(open(QString)));
}

void Kestrowl::connectOtherDocks()
{
    connect(m_docks[Dock::Output], SIGNAL(visibilityChanged(bool)),
            SLOT(outputViewVisibleChange(bool)));
}

QString Kestrowl::settingsPath() const
{
    return joinedPath(m_preferencesDirectory, QLatin1String(CORVANE_BASE_NAME ".ini"));
}

void Kestrowl::readSettings()
{
    QSettings settings(settingsPath(), QSettings::IniFormat);
    readPreferences(settings);
    // Only now: which directory it is depends on the user of Maya, not on the list of defaults.
    if (preferences().projectDir.isEmpty())
        preferences().projectDir = m_scriptDirectory;
    applyToggles();
    updatePreferences();
    m_explorer->setProjectDirectory(preferences().projectDir);
}

void Kestrowl::writeSettings()
{
    QSettings settings(settingsPath(), QSettings::IniFormat);
    writePreferences(settings);
    settings.sync();
}

// The switches as the settings file has them, without telling anyone. Maya's other switches keep
// their state in Maya.
void Kestrowl::applyToggles()
{
    suppressStackWindow(preferences().suppressStackWindow, true);
    showTabsAndSpaces(preferences().showTabsAndSpaces);
    showEndOfLine(preferences().showEndOfLine);
    wordWrap(preferences().wordWrapEnabled);
}

void Kestrowl::updatePreferences()
{
    setToolbarVisible(preferences().toolbar);
    setShown(statusBar(), preferences().statusBar);
    m_output->setLineLimit(preferences().outputWindowBufferSize);
    m_output->setTabWidth(preferences().tabSize); // columns
    m_output->applyColors();
    m_central->updateTabsAndSpaces();
    m_central->updateFontAndColors();
    m_central->updateHiddenCharacters();
    overrideScriptEditorButton(preferences().overrideScriptEditor);
}

void Kestrowl::updatePreferencesAndWrite()
{
    updatePreferences();
    writeSettings();
}

// Shown again, a window may lie behind Maya's.
void Kestrowl::show()
{
    QMainWindow::show();
    raise();
    activateWindow();
}

// The window lives until the plug-in is unloaded: closing it only hides it. What belongs to it but
// is a window of its own goes and comes with it.
void Kestrowl::hideEvent(QHideEvent *event)
{
    QMainWindow::hideEvent(event);
    if (event->spontaneous()) // minimised by the window system, which sees to the rest
        return;
    for (QMenu *menu : menuBar()->findChildren<QMenu *>())
        menu->hideTearOffMenu();
    hideFloatingDocks();
}

void Kestrowl::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        showFloatingDocks();
}

void Kestrowl::keyPressEvent(QKeyEvent *event)
{
    if (!activateShortcut(m_shortcuts, *event))
        QMainWindow::keyPressEvent(event);
}
