// SPDX-License-Identifier: MIT
#include "standin/ui/interruptwatch.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QThread>
#include <QTimer>
#include <QWidget>

namespace standin {

namespace {

// Quick enough for a user who presses Esc, seldom enough to cost the script nothing.
const int millisecondsBetweenLooks = 100;

// Everything by which the user, a timer or a connection could start code of the program.
bool mustWait(QEvent::Type type)
{
    switch (type) {
    case QEvent::Timer:
    case QEvent::SockAct:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::Close:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

} // namespace

InterruptWatch::InterruptWatch(QObject *parent) : QObject(parent)
{
    m_sinceLastLook.start();
}

InterruptWatch::~InterruptWatch() = default;

bool InterruptWatch::interruptRequested()
{
    // Events belong to the thread of the interface.
    if (m_isLooking || m_sinceLastLook.elapsed() < millisecondsBetweenLooks ||
        QThread::currentThread() != thread())
        return false;
    m_isLooking = true;
    m_escapePressed = false;
    // On the application, so that it sees the events of every object.
    QCoreApplication::instance()->installEventFilter(this);
    QCoreApplication::processEvents();
    QCoreApplication::instance()->removeEventFilter(this);
    m_isLooking = false;
    // From the end: after a slow paint the script has its time first.
    m_sinceLastLook.restart();
    return m_escapePressed;
}

bool InterruptWatch::eventFilter(QObject *object, QEvent *event)
{
    if (!mustWait(event->type()))
        return false;
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const QKeyEvent &key = *static_cast<QKeyEvent *>(event);
        if (key.key() == Qt::Key_Escape)
            m_escapePressed = true;
        else
            keepKey(object, key);
    }
    return true;
}

// A key passes the native window first where there is one; only what widgets get is kept.
void InterruptWatch::keepKey(QObject *receiver, const QKeyEvent &event)
{
    if (!receiver->isWidgetType())
        return;
    // Waits like all timers until the script is done; without a delay it would be a queued call.
    if (m_keys.empty())
        QTimer::singleShot(1, this, SLOT(replayKeys()));
    m_keys.emplace_back(receiver,
                        std::make_unique<QKeyEvent>(event.type(), event.key(), event.modifiers(),
                                                    event.text(), event.isAutoRepeat()));
}

void InterruptWatch::replayKeys()
{
    std::vector<KeptKey> keys;
    keys.swap(m_keys);
    for (KeptKey &key : keys) {
        if (key.first)
            // Posted and not sent: each key is handled in a turn of its own, as if it had just been
            // typed.
            QCoreApplication::postEvent(key.first, key.second.release());
    }
}

} // namespace standin
