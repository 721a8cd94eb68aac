// SPDX-License-Identifier: MIT
#include "mainwindow/kestrowl.h"

#include "analysis/edoutlineview.h"
#include "analysis/edquickhelpview.h"
#include "compat/icon.h"
#include "mainwindow/findsession.h"
#include "mainwindow/menus.h"
#include "mainwindow/programnames.h"
#include "mainwindow/shortcuts.h"
#include "mainwindow/toolbars.h"
#include "output/edoutputview.h"
#include "resources/resources.h"
#include "workspace/edbufferview.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/edexplorerview.h"
#include "workspace/edopendocumentview.h"
#include "workspace/journalfolder.h"

#include <QDir>
#include <QDockWidget>
#include <QHideEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QShowEvent>
#include <QToolBar>

namespace {

// Pixels.
const int initialWidth = 1100;
const int initialHeight = 760;

// Maya may not have answered. The directory it runs in, or the root of all, is nobody's place.
QString homeIfEmpty(const QString &directory)
{
    return directory.isEmpty() ? QDir::homePath() : directory;
}

// Of the actions that are not enabled at all times.
bool isEditKey(const QKeyEvent &event)
{
    return event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo) ||
           event.matches(QKeySequence::Cut) || event.matches(QKeySequence::Copy);
}

// Title bars, task bars and lists of windows show it in sizes of their own.
QIcon programIcon()
{
    QStringList paths;
    for (const char *name : {"corvane", "corvane32", "corvane64", "corvane128"})
        paths << iconPath(name);
    return compat::icon(paths);
}

} // namespace

Kestrowl::Kestrowl(const QString &userScriptDirectory, const QString &userPreferencesDirectory,
                   QWidget *parent)
    : QMainWindow(parent), m_scriptDirectory(QDir(homeIfEmpty(userScriptDirectory)).absolutePath()),
      m_preferencesDirectory(homeIfEmpty(userPreferencesDirectory)),
      m_central(new EdCentralWidget(this)), m_find(new FindSession(this))
{
    // The order matters: icons need resources, docks the View menu, connections both ends, and
    // settings everything that they set.
    initResources();
    m_journals = std::make_shared<JournalFolder>(makeBufferDirectory());
    EdCodeView::useJournalFolder(m_journals);
    setObjectName(QLatin1String("Kestrowl"));
    setWindowIcon(programIcon());
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
    connectOutline();
    connectQuickHelp();
    connectOtherDocks();
    resize(initialWidth, initialHeight);
    readSettings();
}

// The children outlive this part of the object; what they still report must not reach it.
Kestrowl::~Kestrowl()
{
    for (QObject *child : findChildren<QObject *>())
        child->disconnect(this);
    delete m_central; // first: its documents write their journals
    if (m_settingsHaveTabs)
        m_journals->forgetTabs();
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
    // Later: the program that dropped the file waits meanwhile, and opening may ask something.
    connect(m_central, SIGNAL(fileDropped(QString)), SLOT(open(QString)), Qt::QueuedConnection);
    connect(m_central, SIGNAL(overwriteModeChanged()), SLOT(updateInsertOverwriteStatus()));
    connect(m_central, SIGNAL(cursorStatusChanged(int, int, int)),
            SLOT(updateCursorStatus(int, int, int)));
    connect(m_central, SIGNAL(quickHelpSelected(QString, bool)),
            SLOT(updateAndShowQuickHelp(QString, bool)));
    connect(m_central, SIGNAL(commandDocumentationSelected(QString, bool)),
            SLOT(openSelectedPage(QString, bool)));
    connect(m_central, SIGNAL(longLineReached()), SLOT(explainLongLine()));
    connect(m_central, SIGNAL(completionSlow()), SLOT(explainSlowCompletion()));
    connect(m_central, SIGNAL(tabsChanged()), SLOT(rememberTabs()));
    connect(m_central, SIGNAL(journalFailed(QString)), SLOT(warnOfJournal(QString)));
    connect(m_central, SIGNAL(findReplaceMessageChanged(QString)), SLOT(setStatusText(QString)));
    connect(m_central, SIGNAL(findReplaceMessageChanged(QString)), m_find,
            SLOT(showMessage(QString)));
    connect(m_find, SIGNAL(messageOutdated(QString)), SLOT(clearStatusText(QString)));
    connect(m_central, SIGNAL(tabSaveSelected()), SLOT(save()));
    connect(m_central, SIGNAL(tabSaveAsSelected()), SLOT(saveAs()));
    connect(m_central, SIGNAL(activeBufferNameChanged(QString)), SLOT(setTitleBufferName(QString)));
    connect(m_central, SIGNAL(activeBufferNameChanged(QString)), SLOT(followDocument()));
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
    connect(m_explorer, SIGNAL(fileOpened(QString)), SLOT(open(QString)));
    connect(m_explorer, SIGNAL(fileRenamed(QString, QString)), m_central,
            SLOT(followRenamed(QString, QString)));
}

void Kestrowl::connectOutline()
{
    connect(m_central, SIGNAL(melScriptUpdated(MelParser)), m_outline,
            SLOT(parseMelCode(MelParser)));
    connect(m_central, SIGNAL(pythonScriptUpdated(PythonParser)), m_outline,
            SLOT(parsePythonCode(PythonParser)));
    connect(m_central, SIGNAL(clearScriptDetails()), m_outline, SLOT(clear()));
    connect(m_central, SIGNAL(fileClosed(QString)), m_outline, SLOT(clearStoredDetails(QString)));
    connect(m_central, SIGNAL(fileRenamed(QString, QString)), m_outline,
            SLOT(renameStoredDetails(QString, QString)));
    connect(m_outline, SIGNAL(outlineItemClicked(int, int, bool)), m_central,
            SLOT(setCursorSelection(int, int, bool)));
    connect(m_outline, SIGNAL(outlineItemDoubleClicked(int, int, bool)), m_central,
            SLOT(setCursorSelection(int, int, bool)));
    connect(m_outline, SIGNAL(outlineViewChanged()), m_central, SLOT(activeViewChange()));
    connect(m_outline, SIGNAL(freshParseWanted()), m_central, SLOT(activeViewChange()));
}

void Kestrowl::connectQuickHelp()
{
    connect(m_quickHelp, SIGNAL(quickHelpSelected(QString, bool)),
            SLOT(updateAndShowQuickHelp(QString, bool)));
    connect(m_quickHelp, SIGNAL(flagSelected(QString)), SLOT(insertQuickHelpFlag(QString)));
    connect(m_quickHelp, SIGNAL(documentationSelected(QString)), SLOT(openQuickHelpPage(QString)));
    connect(m_quickHelp, SIGNAL(editorWanted()), SLOT(focusEditor()));
}

void Kestrowl::connectOtherDocks()
{
    connect(m_docks[Dock::Output], SIGNAL(visibilityChanged(bool)),
            SLOT(outputViewVisibleChange(bool)));
    connect(m_output, SIGNAL(copyAvailable(bool)), SLOT(updateSelectionActions()));
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
    m_isShown = false;
    if (event->spontaneous()) // minimised by the window system, which sees to the rest
        return;
    for (QMenu *menu : menuBar()->findChildren<QMenu *>())
        menu->hideTearOffMenu();
    m_find->closeDialog();
    hideFloatingDocks();
}

void Kestrowl::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        showFloatingDocks();
    m_isShown = true;
}

// What is begun elsewhere in the host may run for long, and crash it.
void Kestrowl::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange)
        return;
    if (isActiveWindow())
        updateDemoNotice();
    else
        m_central->flushJournals();
}

// What cannot be undone or cut here now, Maya would take for its scene.
void Kestrowl::keyPressEvent(QKeyEvent *event)
{
    if (!activateShortcut(m_shortcuts, *event) && !isEditKey(*event))
        QMainWindow::keyPressEvent(event);
}
