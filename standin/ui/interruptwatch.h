// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <memory>
#include <utility>
#include <vector>

class QEvent;
class QKeyEvent;

namespace standin {

// Lets Esc stop a script that keeps the main thread busy. Asked now and then by the interpreter, it
// lets events in through a filter: paint events pass, timers and sockets wait (they come again by
// themselves), keys are kept until the script is done, and the mouse is ignored. So neither the
// idle queue nor the user can start a second script in the middle of the first one. Calls that
// objects have queued to each other do come, for Qt has no way to hold them back.
class InterruptWatch : public QObject
{
    Q_OBJECT

public:
    explicit InterruptWatch(QObject *parent = nullptr);
    ~InterruptWatch() override;

    // Whether Esc was pressed. Looks at most ten times a second.
    bool interruptRequested();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private slots:
    void replayKeys();

private:
    void keepKey(QObject *receiver, const QKeyEvent &event);

    using KeptKey = std::pair<QPointer<QObject>, std::unique_ptr<QKeyEvent>>;

    QElapsedTimer m_sinceLastLook;
    bool m_isLooking = false; // letting events in may run a script that asks again
    bool m_escapePressed = false;
    // In the order typed; receivers may die while their keys wait.
    std::vector<KeptKey> m_keys;
};

} // namespace standin
