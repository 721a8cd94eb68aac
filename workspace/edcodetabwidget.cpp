// SPDX-License-Identifier: MIT
#include "workspace/edcodetabwidget.h"

#include "compat/filesystem.h"
#include "editor/edcodeedit.h"
#include "preferences/preferences.h"
#include "workspace/edcodetabbar.h"
#include "workspace/edcodeview.h"

#include <QStackedWidget>
#include <QVBoxLayout>

EdCodeTabWidget::EdCodeTabWidget(int id, QWidget *parent)
    : QWidget(parent), m_id(id), m_tabBar(new EdCodeTabBar(this)), m_stack(new QStackedWidget(this))
{
    setFocusPolicy(Qt::StrongFocus);
    m_tabBar->setDocumentMode(true);
    m_tabBar->setExpanding(false);
    m_tabBar->setMovable(false); // dragging is done here, to other panes too
    m_tabBar->setTabsClosable(true);
    m_tabBar->setContextMenuPolicy(Qt::CustomContextMenu);
    m_tabBar->installEventFilter(this);
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tabBar);
    layout->addWidget(m_stack);
    connect(m_tabBar, SIGNAL(currentChanged(int)), SLOT(setCurrentCodeView(int)));
    connect(m_tabBar, SIGNAL(tabCloseRequested(int)), SLOT(closeTab(int)));
    hide();
}

int EdCodeTabWidget::count() const
{
    return m_tabBar->count();
}

int EdCodeTabWidget::currentIndex() const
{
    return m_tabBar->currentIndex();
}

// In the bar a lone "&" would underline the next character.
QString EdCodeTabWidget::tabText(int tabIndex) const
{
    return m_tabBar->tabText(tabIndex).replace(QLatin1String("&&"), QLatin1String("&"));
}

void EdCodeTabWidget::setTabText(int tabIndex, const QString &text)
{
    m_tabBar->setTabText(tabIndex, QString(text).replace(QLatin1String("&"), QLatin1String("&&")));
    const EdCodeView *view = codeViewAt(tabIndex);
    const bool isFile = view && !view->isBuffer();
    m_tabBar->setTabToolTip(tabIndex, isFile ? view->fileInfo().absoluteFilePath() : text);
}

// The tab's text without the mark of changes.
QString EdCodeTabWidget::documentName(int tabIndex) const
{
    QString name = tabText(tabIndex);
    const EdCodeView *view = codeViewAt(tabIndex);
    if (view && !view->isBuffer() && name.endsWith(QLatin1Char('*')))
        name.chop(1);
    return name;
}

// Nothing yet while the bar is inserting the tab.
int EdCodeTabWidget::stackIndexAt(int tabIndex) const
{
    const QVariant stackIndex = m_tabBar->tabData(tabIndex);
    return stackIndex.isValid() ? stackIndex.toInt() : -1;
}

EdCodeView *EdCodeTabWidget::codeViewAt(int tabIndex) const
{
    return qobject_cast<EdCodeView *>(m_stack->widget(stackIndexAt(tabIndex)));
}

EdCodeView *EdCodeTabWidget::currentCodeView() const
{
    return codeViewAt(currentIndex());
}

QList<EdCodeView *> EdCodeTabWidget::codeViews() const
{
    QList<EdCodeView *> views;
    for (int tab = 0; tab < count(); ++tab)
        views << codeViewAt(tab);
    return views;
}

QList<EdCodeView *> EdCodeTabWidget::stackedViews() const
{
    QList<EdCodeView *> views;
    for (int i = 0; i < m_stack->count(); ++i)
        views << qobject_cast<EdCodeView *>(m_stack->widget(i));
    return views;
}

// For what may open a box: what runs meanwhile may close some of them, or delete the pane with all.
QList<QPointer<EdCodeView>> EdCodeTabWidget::guarded(const QList<EdCodeView *> &views)
{
    QList<QPointer<EdCodeView>> pointers;
    for (EdCodeView *view : views)
        pointers << QPointer<EdCodeView>(view);
    return pointers;
}

int EdCodeTabWidget::indexOf(const EdCodeView *view) const
{
    for (int tab = 0; view && tab < count(); ++tab) {
        if (codeViewAt(tab) == view)
            return tab;
    }
    return -1;
}

int EdCodeTabWidget::indexOfStack(int stackIndex) const
{
    for (int tab = 0; stackIndex >= 0 && tab < count(); ++tab) {
        if (stackIndexAt(tab) == stackIndex)
            return tab;
    }
    return -1;
}

int EdCodeTabWidget::findFile(const QFileInfo &info) const
{
    const QString path = info.absoluteFilePath();
    int linked = -1;
    for (int tab = 0; tab < count(); ++tab) {
        const QString shown = codeViewAt(tab)->fileInfo().absoluteFilePath();
        if (shown == path)
            return stackIndexAt(tab);
        if (linked < 0 && compat::isSameFile(shown, path))
            linked = stackIndexAt(tab);
    }
    return linked;
}

int EdCodeTabWidget::findBuffer(int bufferIndex) const
{
    for (int tab = 0; tab < count(); ++tab) {
        const EdCodeView *view = codeViewAt(tab);
        if (view->isBuffer() && view->bufferIndex() == bufferIndex)
            return stackIndexAt(tab);
    }
    return -1;
}

bool EdCodeTabWidget::isModified(int tabIndex) const
{
    const EdCodeView *view = codeViewAt(tabIndex);
    return view && view->isModified();
}

int EdCodeTabWidget::freeStackIndex() const
{
    if (count() == m_stack->count())
        return -1;
    for (int i = 0; i < m_stack->count(); ++i) {
        if (indexOfStack(i) < 0)
            return i;
    }
    return -1;
}

// In the place of an empty view, if there is one, so that those do not grow in number.
int EdCodeTabWidget::addToStack(EdCodeView *view)
{
    const int stackIndex = freeStackIndex();
    if (stackIndex < 0)
        return m_stack->addWidget(view);
    QWidget *placeholder = m_stack->widget(stackIndex);
    replaceInStack(stackIndex, view);
    delete placeholder;
    return stackIndex;
}

// A view that is hidden while it has the focus passes it on, perhaps to the other pane, which would
// become the active one.
void EdCodeTabWidget::bringToFront(EdCodeView *view)
{
    const QWidget *old = m_stack->currentWidget();
    const QWidget *focused = window()->focusWidget();
    const bool hasFocus = old && old != view && focused && old->isAncestorOf(focused);
    if (hasFocus)
        setFocus(Qt::OtherFocusReason);
    m_stack->setCurrentWidget(view);
    if (hasFocus)
        view->setCodeEditFocus();
}

// Never takes another view to the front, which would then be laid out and painted.
void EdCodeTabWidget::replaceInStack(int stackIndex, EdCodeView *view)
{
    QWidget *old = m_stack->widget(stackIndex);
    const bool isInFront = m_stack->currentWidget() == old;
    m_stack->insertWidget(stackIndex, view);
    if (isInFront)
        bringToFront(view);
    m_stack->removeWidget(old);
    old->hide();
}

int EdCodeTabWidget::insertCodeView(int position, EdCodeView *view, const QString &label)
{
    const int tab = addTab(position, view, label, true);
    show();
    view->setCodeEditFocus();
    return tab;
}

// Behind the current tab if there is one, unless it is to be in front.
int EdCodeTabWidget::addTab(int position, EdCodeView *view, const QString &label, bool inFront)
{
    forgetTabs();
    const int stackIndex = addToStack(view);
    const int tab = m_tabBar->insertTab(position, QString());
    m_tabBar->setTabData(tab, stackIndex);
    setTabText(tab, label);
    connectView(view); // first: it may get the focus
    if (inFront)
        m_tabBar->setCurrentIndex(tab);
    if (inFront || count() == 1)
        setCurrentCodeView(tab); // the bar says nothing of its first tab
    emit codeViewInserted(view);
    return tab;
}

void EdCodeTabWidget::connectView(EdCodeView *view)
{
    connect(view, SIGNAL(gainedFocus()), SLOT(inFocus()));
    connect(view, SIGNAL(modificationChanged(bool)), SLOT(setModified(bool)));
    connect(view, SIGNAL(fileRenamed(QString, QString)), SLOT(onFileRenamed(QString, QString)));
    connect(view, SIGNAL(overwriteModeChanged()), SLOT(onOverwriteModeChange()));
    connect(view, SIGNAL(cursorStatusChanged()), SLOT(onCursorStatusChange()));
    connect(view, SIGNAL(textChanged()), SLOT(onTextChange()));
    connect(view, SIGNAL(findReplaceMessageChanged(QString)),
            SLOT(onFindReplaceMessageChange(QString)));
    connect(view, SIGNAL(moveToOtherViewSelected()), SLOT(moveToOtherView()));
    connect(view, SIGNAL(quickHelpSelected(QString, bool)), SLOT(quickHelp(QString, bool)));
    connect(view, SIGNAL(fileDropped(QString)), SLOT(onFileDrop(QString)));
    connect(view, SIGNAL(previousTabSelected()), SLOT(previousTab()));
    connect(view, SIGNAL(nextTabSelected()), SLOT(nextTab()));
    connect(view, SIGNAL(commandDocumentationSelected(QString, bool)),
            SIGNAL(commandDocumentationSelected(QString, bool)));
    connect(view, SIGNAL(longLineReached()), SIGNAL(longLineReached()));
    connect(view, SIGNAL(completionSlow()), SIGNAL(completionSlow()));
}

// Its messages are shown over the pane.
EdCodeView *EdCodeTabWidget::newView()
{
    return EdCodeView::createUnseen(this);
}

int EdCodeTabWidget::newBuffer(int bufferIndex, int language, const QString &label)
{
    EdCodeView *view = new EdCodeView(bufferIndex, language, this);
    const int tab = insertCodeView(preferences().insertDocsOnLeft ? 0 : -1, view, label);
    emit bufferCreated(bufferIndex, label, view->fileInfo());
    return tab;
}

int EdCodeTabWidget::newBuffer(int bufferIndex)
{
    return newBuffer(bufferIndex, EdCodeView::Text, tr("Text"));
}

int EdCodeTabWidget::newMelBuffer(int bufferIndex)
{
    return newBuffer(bufferIndex, EdCodeView::Mel, tr("MEL"));
}

int EdCodeTabWidget::newPythonBuffer(int bufferIndex)
{
    return newBuffer(bufferIndex, EdCodeView::Python, tr("Python"));
}

int EdCodeTabWidget::openBuffer(const QFileInfo &info, int bufferIndex, const QString &label,
                                int position)
{
    const QPointer<EdCodeView> view = newView(); // its message may outlive it
    if (!view->load(info, true, bufferIndex)) {
        delete view.data();
        return -1;
    }
    const int tab = insertCodeView(position, view, label);
    emit bufferCreated(bufferIndex, label, info);
    return tab;
}

int EdCodeTabWidget::openFile(const QFileInfo &info, int existingStackIndex, int position)
{
    const int existing = indexOfStack(existingStackIndex);
    if (existing >= 0) {
        setCurrentTab(existing);
        return -1;
    }
    const QPointer<EdCodeView> view = newView();
    if (!view->load(info, false, -1)) {
        delete view.data();
        return -1;
    }
    const int tab = insertCodeView(position, view, info.fileName());
    emit fileOpened(info.absoluteFilePath());
    return existingStackIndex == -1 ? tab : -1;
}

void EdCodeTabWidget::reload(int tabIndex)
{
    EdCodeView *view = codeViewAt(tabIndex);
    if (view && !view->isBuffer())
        view->reload();
}

void EdCodeTabWidget::setCurrentTab(int tabIndex)
{
    if (tabIndex < 0 || tabIndex >= count())
        return;
    const bool changes = tabIndex != currentIndex();
    m_tabBar->setCurrentIndex(tabIndex); // which raises the view
    setCodeEditFocus();
    if (changes)
        emit tabChanged();
}

void EdCodeTabWidget::setCurrentCodeView(int tabIndex)
{
    if (m_moving) // tabs only: the view in front stays
        return;
    endDrag();
    if (EdCodeView *view = codeViewAt(tabIndex))
        bringToFront(view);
}

void EdCodeTabWidget::focusBuffer(int bufferIndex)
{
    setCurrentTab(indexOfStack(findBuffer(bufferIndex)));
}

void EdCodeTabWidget::previousTab()
{
    if (count() > 1)
        setCurrentTab((currentIndex() + count() - 1) % count());
}

void EdCodeTabWidget::nextTab()
{
    if (count() > 1)
        setCurrentTab((currentIndex() + 1) % count());
}

// An empty view takes the place of the tab's, which is nobody's business here any more.
EdCodeView *EdCodeTabWidget::takeView(int tabIndex)
{
    forgetTabs();
    EdCodeView *view = codeViewAt(tabIndex);
    replaceInStack(stackIndexAt(tabIndex), newView());
    view->disconnect(this);
    return view;
}

void EdCodeTabWidget::removeTab(int tabIndex)
{
    forgetTabs();
    m_tabBar->removeTab(tabIndex);
    if (count() == 0)
        hide();
}

// Whatever was to be done with a tab of some index.
void EdCodeTabWidget::forgetTabs()
{
    forgetContextTab();
    endDrag();
}

void EdCodeTabWidget::tabMoved(int tabIndex)
{
    if (!codeViewAt(tabIndex))
        return;
    takeView(tabIndex);
    removeTab(tabIndex);
}

// Deliberate: the tab goes last. Whoever is told before finds it with an empty view.
void EdCodeTabWidget::forceCloseTab(int tabIndex)
{
    if (!codeViewAt(tabIndex))
        return;
    const int stackIndex = stackIndexAt(tabIndex);
    EdCodeView *view = takeView(tabIndex);
    const QString path = view->fileInfo().absoluteFilePath();
    const int bufferIndex = view->bufferIndex();
    view->retire();
    m_retiredViews.removeAll(QPointer<EdCodeView>());
    m_retiredViews << QPointer<EdCodeView>(view);
    view->deleteLater();
    emit codeViewRetired(view);
    if (bufferIndex != -1)
        emit bufferDeleted(bufferIndex);
    emit fileClosed(path);
    removeTab(indexOfStack(stackIndex)); // whoever was told may have opened others
    if (count() == 0)
        emit otherViewRequested(m_id, -1);
    else
        emit tabChanged();
}

void EdCodeTabWidget::deleteRetiredViews()
{
    const QList<QPointer<EdCodeView>> views = m_retiredViews;
    m_retiredViews.clear();
    for (const QPointer<EdCodeView> &view : views)
        delete view.data();
}
