// SPDX-License-Identifier: MIT
// The two panes: how they are made and which is active, what they report, and the commands that
// are theirs to carry out.
#include "workspace/edcentralwidget.h"

#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/filewatch.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QSplitter>
#include <QUrl>
#include <QVBoxLayout>

namespace {

QStringList localFiles(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls()) {
        const QString path = url.toLocalFile();
        if (!path.isEmpty())
            paths << path;
    }
    return paths;
}

} // namespace

EdCentralWidget::EdCentralWidget(QWidget *parent)
    : QWidget(parent), m_scripts(this), m_splitter(new QSplitter(this)),
      m_watch(new FileWatch(this))
{
    setObjectName(QLatin1String("centralwidget"));
    setAcceptDrops(true);
    m_splitter->setObjectName(QLatin1String("centralsplitter"));
    m_splitter->setChildrenCollapsible(false); // a pane of no width would seem lost
    m_parseTimer.setSingleShot(true);
    connect(&m_parseTimer, SIGNAL(timeout()), SLOT(activeViewChange()));
    m_otherPaneTimer.setSingleShot(true);
    connect(&m_otherPaneTimer, SIGNAL(timeout()), SLOT(parseOtherPane()));
    m_tabsTimer.setSingleShot(true);
    m_tabsTimer.setInterval(0);
    connect(&m_tabsTimer, SIGNAL(timeout()), SIGNAL(tabsChanged()));
    for (int id = 0; id < PaneCount; ++id) {
        m_panes << new EdCodeTabWidget(id, m_splitter);
        m_splitter->addWidget(m_panes.last());
        connectPane(m_panes.last());
    }
    makeActive(0);
    connect(m_watch, SIGNAL(fileChanged(QString)), SLOT(externalFileChange(QString)));
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_splitter);
}

// The panes outlive this part of the object; what they still report must not reach it.
EdCentralWidget::~EdCentralWidget()
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->disconnect(this);
}

void EdCentralWidget::connectPane(EdCodeTabWidget *pane)
{
    connect(pane, SIGNAL(otherViewRequested(int, int)), SLOT(moveToOtherView(int, int)));
    connect(pane, SIGNAL(tabMovedOutsideCurrent(int, QPoint, bool)),
            SLOT(tabMovedToNewPosition(int, QPoint, bool)));
    connect(pane, SIGNAL(gainedFocus(int)), SLOT(setActiveTabWidgetIndex(int)));
    connect(pane, SIGNAL(fileOpened(QString)), SLOT(onFileOpened(QString)));
    connect(pane, SIGNAL(fileClosed(QString)), SLOT(onFileClosed(QString)));
    connect(pane, SIGNAL(fileRenamed(QString, QString)), SLOT(onFileRenamed(QString, QString)));
    connect(pane, SIGNAL(createNewBufferTriggered()), SLOT(onCreateNewBuffer()));
    connect(pane, SIGNAL(bufferCreated(int, QString, QFileInfo)),
            SLOT(onBufferCreated(int, QString, QFileInfo)));
    connect(pane, SIGNAL(bufferDeleted(int)), SLOT(onBufferDeleted(int)));
    connect(pane, SIGNAL(bufferRenamed(int, QString)), SLOT(onBufferRenamed(int, QString)));
    connect(pane, SIGNAL(closeAllButCurrent(int)), SLOT(closeAllButCurrent(int)));
    connect(pane, SIGNAL(saveSelected()), SLOT(currentTabSave()));
    connect(pane, SIGNAL(saveAsSelected()), SLOT(currentTabSaveAs()));
    connect(pane, SIGNAL(overwriteModeChanged()), SLOT(onOverwriteModeChange()));
    connect(pane, SIGNAL(cursorStatusChanged()), SLOT(onCursorStatusChange()));
    connect(pane, SIGNAL(findReplaceMessageChanged(QString)),
            SLOT(onFindReplaceMessageChange(QString)));
    connect(pane, SIGNAL(quickHelpSelected(QString, bool)), SLOT(quickHelp(QString, bool)));
    connect(pane, SIGNAL(textChanged()), SLOT(onTextChange()));
    connect(pane, SIGNAL(tabChanged()), SLOT(onTabChange()));
    connect(pane, SIGNAL(fileDropped(QString, int)), SLOT(onFileDrop(QString, int)));
    connect(pane, SIGNAL(commandDocumentationSelected(QString, bool)),
            SIGNAL(commandDocumentationSelected(QString, bool)));
    connect(pane, SIGNAL(longLineReached()), SIGNAL(longLineReached()));
    connect(pane, SIGNAL(completionSlow()), SIGNAL(completionSlow()));
    connect(pane, SIGNAL(codeViewInserted(EdCodeView *)), SLOT(onCodeViewInserted(EdCodeView *)));
    connect(pane, SIGNAL(aboutToSave(EdCodeView *, bool *)),
            SLOT(askBeforeSaving(EdCodeView *, bool *)));
    connect(pane, SIGNAL(tabsReordered()), &m_tabsTimer, SLOT(start()));
    connect(pane, SIGNAL(codeViewRetired(EdCodeView *)), SLOT(noteKeptChanges(EdCodeView *)));
}

EdCodeView *EdCentralWidget::currentCodeView() const
{
    return active()->count() > 0 ? active()->currentCodeView() : nullptr;
}

QList<EdCodeView *> EdCentralWidget::codeViews() const
{
    QList<EdCodeView *> views;
    for (const EdCodeTabWidget *pane : m_panes)
        views += pane->codeViews();
    return views;
}

bool EdCentralWidget::hasUnsavedContent() const
{
    for (const EdCodeView *view : codeViews()) {
        if (view->isModified())
            return true;
    }
    return false;
}

// With both in sight, their tabs tell which one commands go to.
void EdCentralWidget::makeActive(int id)
{
    m_activeView = id;
    for (EdCodeTabWidget *pane : m_panes)
        pane->setActive(pane->id() == id);
}

void EdCentralWidget::activate(int wantedId)
{
    const int id = paneId(wantedId);
    if (id == m_activeView)
        return;
    makeActive(id);
    onTabChange();
}

void EdCentralWidget::setActiveTabWidgetIndex(int id)
{
    activate(id);
    // A pane that reports the focus is in the middle of an event, perhaps of a mouse button that
    // would be released over the question.
    if (sender())
        QMetaObject::invokeMethod(this, "checkForFileChanges", Qt::QueuedConnection);
    else
        checkForFileChanges();
}

void EdCentralWidget::moveToOtherView(int wantedId, int tabIndex)
{
    const int id = paneId(wantedId);
    const int other = std::max(id - 1, 1 - id);
    if (tabIndex == -1) {
        activate(other);
        if (!m_ignoresTabs)
            checkForFileChanges();
        return;
    }
    EdCodeView *view = m_panes.at(id)->codeViewAt(tabIndex);
    if (!view)
        return;
    const QString label = m_panes.at(id)->tabText(tabIndex);
    m_panes.at(id)->tabMoved(tabIndex);
    makeActive(other);
    m_panes.at(other)->insertCodeView(-1, view, label);
    onTabChange();
}

void EdCentralWidget::tabMovedToNewPosition(int wantedId, const QPoint &globalPos,
                                            bool updateCursorOnly)
{
    const int id = paneId(wantedId);
    EdCodeTabWidget *target = nullptr;
    for (EdCodeTabWidget *pane : m_panes) {
        if (pane->id() != id && pane->isVisible() &&
            pane->rect().contains(pane->mapFromGlobal(globalPos)))
            target = pane;
    }
    if (updateCursorOnly && !target)
        active()->setCursor(Qt::ForbiddenCursor);
    else
        active()->unsetCursor();
    if (!updateCursorOnly && target)
        moveToOtherView(id, m_panes.at(id)->currentIndex());
}

// It may come from the other pane, and be connected already.
void EdCentralWidget::onCodeViewInserted(EdCodeView *view)
{
    connect(view, SIGNAL(journalFailed(QString)), this, SIGNAL(journalFailed(QString)),
            Qt::UniqueConnection);
}

// The name that is shown may be the one that has changed.
void EdCentralWidget::onFileRenamed(const QString &oldPath, const QString &newPath)
{
    m_watch->unwatch(oldPath);
    m_watch->watch(newPath);
    externalFileChange(newPath); // what others did to it under its old name is still to be asked
    emit fileRenamed(oldPath, newPath);
    const EdCodeView *current = currentCodeView();
    if (current && current->fileInfo().absoluteFilePath() == newPath)
        activeViewChange(); // the language may be another one
    reportName();
}

void EdCentralWidget::onBufferRenamed(int id, const QString &newName)
{
    emit bufferRenamed(id, newName);
    reportName();
}

void EdCentralWidget::onFileOpened(const QString &path)
{
    m_watch->watch(path);
    forgetEntry(path);
    emit fileOpened(path);
}

void EdCentralWidget::onFileClosed(const QString &path)
{
    m_watch->unwatch(path);
    m_tabsTimer.start();
    emit fileClosed(path);
}

void EdCentralWidget::onCreateNewBuffer()
{
    emit createNewBufferTriggered();
}

void EdCentralWidget::onBufferCreated(int id, const QString &name, const QFileInfo &info)
{
    emit bufferCreated(id, name, info);
}

void EdCentralWidget::onBufferDeleted(int id)
{
    m_tabsTimer.start();
    emit bufferDeleted(id);
}

// Not by setActiveTabWidgetIndex(), which may ask something: the program that dropped the file
// waits.
void EdCentralWidget::onFileDrop(const QString &path, int tabWidgetId)
{
    activate(tabWidgetId);
    emit fileDropped(path);
}

void EdCentralWidget::onOverwriteModeChange()
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->updateOverwriteMode();
    emit overwriteModeChanged();
}

void EdCentralWidget::onFindReplaceMessageChange(const QString &message)
{
    emit findReplaceMessageChanged(message);
}

void EdCentralWidget::quickHelp(const QString &text, bool ignoreWhenHidden)
{
    emit quickHelpSelected(text, ignoreWhenHidden);
}

void EdCentralWidget::currentTabSave()
{
    emit tabSaveSelected();
}

void EdCentralWidget::currentTabSaveAs()
{
    emit tabSaveAsSelected();
}

void EdCentralWidget::undo()
{
    active()->undo();
}

void EdCentralWidget::redo()
{
    active()->redo();
}

void EdCentralWidget::cut()
{
    active()->cut();
}

void EdCentralWidget::copy()
{
    active()->copy();
}

void EdCentralWidget::paste()
{
    active()->paste();
}

void EdCentralWidget::selectAll()
{
    active()->selectAll();
}

void EdCentralWidget::clearText()
{
    active()->clearText();
}

void EdCentralWidget::convertTabsToSpaces()
{
    active()->convertTabsToSpaces();
}

void EdCentralWidget::findReplace(const QString &findText, const QString &replaceText, int options)
{
    active()->findReplace(findText, replaceText, options);
}

void EdCentralWidget::replace(const QString &text)
{
    active()->replace(text);
}

void EdCentralWidget::setCursorSelection(int pos, int anchor, bool focus)
{
    active()->setCursorSelection(pos, anchor);
    if (focus && currentCodeView())
        active()->setCodeEditFocus();
}

void EdCentralWidget::setCursorSelection(int pos, int anchor)
{
    setCursorSelection(pos, anchor, true);
}

void EdCentralWidget::setTabBarVisible(bool visible)
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->setTabBarVisible(visible);
}

void EdCentralWidget::setTabsMovable(bool movable)
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->setTabsMovable(movable);
}

void EdCentralWidget::setTabsClosable(bool closable)
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->setTabsClosable(closable);
}

void EdCentralWidget::setTabsDoubleClickToClose(bool close)
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->setTabsDoubleClickToClose(close);
}

void EdCentralWidget::updateTabsAndSpaces()
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->updateTabSettings();
}

void EdCentralWidget::updateFontAndColors()
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->updateFontAndColors();
}

void EdCentralWidget::updateHiddenCharacters()
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->updateHiddenCharacters();
}

void EdCentralWidget::tabCleanup()
{
    for (EdCodeTabWidget *pane : m_panes)
        pane->deleteRetiredViews();
}

void EdCentralWidget::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (!currentCodeView() && event->button() == Qt::LeftButton)
        emit createNewBufferTriggered();
}

void EdCentralWidget::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    if (currentCodeView())
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("Open a file, or double-click here for a new buffer."));
}

// Documents take theirs themselves; these fell on the tab bars, or where there is no document.
void EdCentralWidget::dragEnterEvent(QDragEnterEvent *event)
{
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void EdCentralWidget::dropEvent(QDropEvent *event)
{
    for (const QString &path : localFiles(*event->mimeData()))
        emit fileDropped(path);
    event->acceptProposedAction();
}
