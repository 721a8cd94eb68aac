// SPDX-License-Identifier: MIT
// The mouse on a pane's tabs.
#include "workspace/edcodetabwidget.h"

#include "editor/edcodeedit.h"
#include "workspace/edcodetabbar.h"
#include "workspace/edcodeview.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

bool isEscape(QEvent *event)
{
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    return isKey && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
}

} // namespace

// Of the bar, and, while a tab is dragged, of the editor that has the keys.
bool EdCodeTabWidget::eventFilter(QObject *object, QEvent *event)
{
    if (object == m_tabBar)
        return barEvent(event);
    if (!isDragging() || !isEscape(event))
        return QWidget::eventFilter(object, event);
    event->accept();
    if (event->type() == QEvent::KeyPress)
        endDrag();
    return true;
}

// By a click beside the tabs, or from another widget: nobody can type here. A focus that this pane
// gave to itself stays while it changes views.
void EdCodeTabWidget::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
        reason == Qt::BacktabFocusReason)
        setCodeEditFocus();
}

// Returns whether the bar shall not see the event.
bool EdCodeTabWidget::barEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
        return doubleClick(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonPress:
        press(*static_cast<QMouseEvent *>(event));
        return false;
    case QEvent::MouseMove:
        drag(*static_cast<QMouseEvent *>(event));
        return false;
    case QEvent::MouseButtonRelease:
        return release(*static_cast<QMouseEvent *>(event));
    case QEvent::Wheel:
    case QEvent::KeyPress:
        return stepInBar(event);
    case QEvent::UngrabMouse:
    case QEvent::WindowDeactivate:
    case QEvent::Hide:
        endDrag();
        return false;
    default:
        return false;
    }
}

// With the wheel and the arrow keys the bar goes from tab to tab by itself.
bool EdCodeTabWidget::stepInBar(QEvent *event)
{
    const int before = currentIndex();
    QObject *bar = m_tabBar;
    bar->event(event);
    if (currentIndex() != before)
        emit tabChanged();
    return true;
}

bool EdCodeTabWidget::doubleClick(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton)
        return false;
    const int tab = m_tabBar->tabAt(event.pos());
    if (tab < 0)
        emit createNewBufferTriggered();
    else if (m_doubleClickToClose)
        closeTab(tab);
    return true;
}

void EdCodeTabWidget::press(const QMouseEvent &event)
{
    const int pressed = m_tabBar->tabAt(event.pos());
    m_middleView = event.button() == Qt::MiddleButton ? codeViewAt(pressed) : nullptr;
    const bool isLeft = event.button() == Qt::LeftButton;
    if (!isLeft && event.button() != Qt::RightButton)
        return;
    setCurrentTab(pressed >= 0 ? pressed : currentIndex());
    if (isLeft)
        startDrag(event.pos().x());
}

// With the current tab: whoever was told that it is may have closed others.
void EdCodeTabWidget::startDrag(int x)
{
    endDrag();
    EdCodeView *view = currentCodeView();
    if (!view)
        return;
    view->codeEdit()->installEventFilter(this);
    m_tabBar->setMouseTracking(true); // also tells when the button is up already
    m_dragSource = currentIndex();
    m_dragPlace = DragPlace::Tabs;
    m_dragX = x;
    m_leftTurn = -1;
    m_rightTurn = -1;
}

void EdCodeTabWidget::endDrag()
{
    if (!isDragging())
        return;
    codeViewAt(m_dragSource)->codeEdit()->removeEventFilter(this);
    m_tabBar->setMouseTracking(false);
    m_dragSource = -1;
    unsetCursor();
    if (m_reordered) {
        m_reordered = false;
        emit tabsReordered();
    }
}

void EdCodeTabWidget::drag(const QMouseEvent &event)
{
    if (!m_movable || !isDragging())
        return;
    if (!(event.buttons() & Qt::LeftButton)) { // it went up where nobody told
        endDrag();
        return;
    }
    setCursor(Qt::ClosedHandCursor);
    const QPoint position = event.pos();
    const int movement = position.x() - m_dragX;
    m_dragX = position.x();
    // Tabs out of sight have their places beside the bar.
    const int target = m_tabBar->rect().contains(position) ? m_tabBar->tabAt(position) : -1;
    if (target >= 0)
        dragOver(target, position.x(), movement);
    else
        dragBeside(position);
}

// Having swapped with a wider tab, the mouse is over that one still: it would swap back at once.
//
// [ a ][     b     ]    the mouse on "a" moves right
//        |              here they swap
// [     b     ][ a ]    and only to the left of here they swap back
//        |
void EdCodeTabWidget::dragOver(int target, int x, int movement)
{
    m_dragPlace = DragPlace::Tabs;
    const bool turnsRight = target > m_dragSource && m_rightTurn >= 0 && x < m_rightTurn;
    const bool turnsLeft = target < m_dragSource && m_leftTurn >= 0 && x > m_leftTurn;
    if (target == m_dragSource || turnsRight || turnsLeft)
        return;
    m_moving = true;
    m_tabBar->moveTab(m_dragSource, target);
    m_tabBar->setCurrentIndex(target);
    m_moving = false;
    m_reordered = true;
    m_dragSource = target;
    m_rightTurn = movement <= 0 ? x : -1;
    m_leftTurn = movement <= 0 ? -1 : x;
}

void EdCodeTabWidget::dragBeside(const QPoint &position)
{
    if (m_tabBar->rect().contains(position)) {
        m_dragPlace = DragPlace::Nowhere;
        setCursor(Qt::ForbiddenCursor);
    } else if (rect().contains(m_tabBar->mapTo(this, position))) {
        m_dragPlace = DragPlace::Pane;
    } else {
        m_dragPlace = DragPlace::Outside;
        emit tabMovedOutsideCurrent(m_id, m_tabBar->mapToGlobal(position), true);
    }
}

bool EdCodeTabWidget::release(const QMouseEvent &event)
{
    switch (event.button()) {
    case Qt::RightButton:
        contextMenu(event.pos());
        return true;
    case Qt::MiddleButton:
        closePressedTab(event.pos());
        return true;
    case Qt::LeftButton:
        drop(m_tabBar->mapToGlobal(event.pos()));
        return false;
    default:
        return false;
    }
}

// As the middle button does in other programs.
void EdCodeTabWidget::closePressedTab(const QPoint &position)
{
    const int tab = m_tabBar->tabAt(position);
    if (m_tabBar->tabsClosable() && m_middleView && codeViewAt(tab) == m_middleView)
        closeTab(tab);
}

// The drag ends before anybody is told.
void EdCodeTabWidget::drop(const QPoint &globalPos)
{
    const DragPlace place = isDragging() ? m_dragPlace : DragPlace::Nowhere;
    endDrag();
    if (place == DragPlace::Pane)
        tabMoveContextMenu(globalPos);
    else if (place == DragPlace::Outside)
        emit tabMovedOutsideCurrent(m_id, globalPos, false);
}
